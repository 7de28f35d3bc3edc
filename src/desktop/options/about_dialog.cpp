#include "desktop/options/about_dialog.h"

#include "desktop/icons.h"
#include "platform/icu/icu_version.h"
#include "platform/qt/qt_text.h"
#include "platform/sqlite/sqlite_store_copies.h"
#include "platform/sqlite/sqlite_version.h"
#include "resources/texts/copies.h"
#include "resources/texts/options.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::options;
using platform::toQString;

namespace {

constexpr int iconSize = 64;
constexpr int largerBy = 4; // points

QLabel* makeText(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

// A path has no blanks to break at; it may be broken behind every folder.
QString breakable(const std::filesystem::path& path) {
    return QString::fromStdString(path.string()).replace('/', QString('/') + QChar(0x200B));
}

// Where the copies are and of when the newest is.
QString copiesText(Workspace& workspace) {
    const auto copies = platform::openStoreCopies(platform::copyPlaces(workspace.directories()));
    const auto all = copies->list();
    QString text = toQString(resources::copies::none);
    if (!all.empty()) {
        const auto& time = all.front().time;
        const auto& locale = workspace.locale();
        text = toQString(resources::copies::newest)
                   .replace("%s", toQString(locale.shortDate(time) + u' ' + locale.timeWithoutSeconds(time)));
    }
    return text + ' ' + breakable(copies->folder());
}

} // namespace

AboutDialog::AboutDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::aboutTitle), "Main_Contents", parent) {
    buttons()->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Help);
    addHeading();
    addFacts();
    content()->addStretch();
}

void AboutDialog::addHeading() {
    auto* row = new QHBoxLayout;
    auto* picture = new QLabel;
    picture->setPixmap(applicationIcon().pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    row->addWidget(picture, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;
    row->addLayout(column, 1);
    auto* name = makeText(toQString(resources::StringId::appTitle));
    QFont font = name->font();
    font.setBold(true);
    font.setPointSize(font.pointSize() + largerBy);
    name->setFont(font);
    column->addWidget(name);
    column->addWidget(makeText(toQString(texts::aboutVersion).replace("%s", HOURWRIGHT_VERSION)));
    column->addWidget(makeText(toQString(texts::aboutWhat)));
    content()->addLayout(row);
}

void AboutDialog::addFacts() {
    auto* form = addForm();
    form->addRow(toQString(texts::aboutLicence), makeText("MIT"));
    form->addRow(toQString(texts::aboutData), makeText(breakable(workspace().directories().data)));
    form->addRow(toQString(resources::copies::label), makeText(copiesText(workspace())));
    const QStringList libraries{QString("Qt ") + qVersion(),
                                "SQLite " + QString::fromStdString(platform::sqliteVersion()),
                                "ICU " + QString::fromStdString(platform::icuVersion())};
    form->addRow(toQString(texts::aboutLibraries), makeText(libraries.join(", ")));
}

} // namespace hourwright::desktop
