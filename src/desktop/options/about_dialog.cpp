#include "desktop/options/about_dialog.h"

#include "desktop/icons.h"
#include "desktop/screen_size.h"
#include "platform/icu/icu_version.h"
#include "platform/nettle/nettle_version.h"
#include "platform/opus/opus_version.h"
#include "platform/qt/qt_text.h"
#include "platform/sqlite/sqlite_store_copies.h"
#include "platform/sqlite/sqlite_version.h"
#include "resources/texts/copies.h"
#include "resources/texts/options.h"

#include <QApplication>
#include <QClipboard>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::options;
using platform::toQString;

namespace {

constexpr int iconSize = 64;
constexpr int largerBy = 4; // points
constexpr int widthOfText = 460;

QLabel* makeText(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

// A path has no blanks to break at; it may be broken behind every folder. What is selected there would not be the path.
QLabel* makePath(const QString& path) {
    return makeText(QString(path).replace('/', QString('/') + QChar(0x200B)));
}

QLabel* makeSelectable(const QString& text) {
    auto* label = makeText(text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
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
    return text + ' ' + QString::fromStdString(copies->folder().string());
}

} // namespace

AboutDialog::AboutDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::aboutTitle), "Main_Contents", parent) {
    buttons()->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Help);
    auto* copy = buttons()->addButton(toQString(texts::aboutCopy), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(summary()); });
    addHeading();
    addFacts();
    content()->addStretch();
    if (!isHandheld())
        setMinimumWidth(widthOfText);
    buttons()->button(QDialogButtonBox::Ok)->setFocus();
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
    column->addWidget(makeSelectable(toQString(texts::aboutVersion).replace("%s", HOURWRIGHT_VERSION)));
    column->addWidget(makeText(toQString(texts::aboutWhat)));
    content()->addLayout(row);
}

void AboutDialog::addFacts() {
    const auto& directories = workspace().directories();
    const QStringList libraries{QString("Qt ") + qVersion(),
                                "SQLite " + QString::fromStdString(platform::sqliteVersion()),
                                "ICU " + QString::fromStdString(platform::icuVersion()),
                                "Opus " + QString::fromStdString(platform::opusVersion()),
                                "Nettle " + QString::fromStdString(platform::nettleVersion())};
    form_ = addForm();
    addFact(texts::aboutLicence, "MIT", makeSelectable("MIT"));
    for (const auto& [label, path] : {std::pair{texts::aboutData, directories.recordsFile()},
                                      std::pair{texts::aboutSettings, directories.settingsFile()}}) {
        const QString text = QString::fromStdString(path.string());
        addFact(label, text, makePath(text));
    }
    const QString copies = copiesText(workspace());
    addFact(resources::copies::label, copies, makePath(copies));
    addFact(texts::aboutLibraries, libraries.join(", "), makeSelectable(libraries.join(", ")));
}

void AboutDialog::addFact(const resources::Text& label, const QString& fact, QLabel* shown) {
    form_->addRow(toQString(label), shown);
    facts_ += toQString(label) + ' ' + fact + '\n';
}

QString AboutDialog::summary() const {
    return toQString(resources::StringId::appTitle) + ' ' + HOURWRIGHT_VERSION + '\n' + facts_;
}

} // namespace hourwright::desktop
