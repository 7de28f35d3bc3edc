#include "desktop/exports/export_note.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/exports.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

using platform::toQString;
namespace exports = resources::exports;

ExportNote::ExportNote(Workspace& workspace, const std::filesystem::path& file, std::uint64_t records, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(toQString(exports::doneTitle));
    const QString count = records == 1 ? toQString(exports::doneOne)
                                       : toQString(exports::doneMany).replace("%s", QString::number(records));
    auto* label = new QLabel(count + '\n' + QString::fromStdU16String(file.u16string()));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* failure = new QLabel(toQString(exports::notOpened));
    failure->hide();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    const auto addButton = [&](const resources::Text& text, const std::filesystem::path& target) {
        auto* button = buttons->addButton(toQString(text), QDialogButtonBox::ActionRole);
        connect(button, &QPushButton::clicked, this, [this, &workspace, target, failure] {
            if (workspace.shell().open(target))
                accept();
            else
                failure->show();
        });
    };
    addButton(exports::openFile, file);
    addButton(exports::openFolder, file.parent_path());
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(failure);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setFocus();
    setMinimumWidth(320);
}

} // namespace hourwright::desktop
