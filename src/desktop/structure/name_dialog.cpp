#include "desktop/structure/name_dialog.h"

#include "billing/structure_edit.h"
#include "platform/qt/qt_text.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

using platform::toQString;

NameDialog::NameDialog(Workspace& workspace, const QString& title, const resources::Text& label, std::string helpAnchor,
                       QWidget* parent)
    : Dialog(workspace, title, std::move(helpAnchor), parent), name_(new QLineEdit) {
    name_->setMaxLength(static_cast<int>(billing::maxNameLength));
    name_->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    addForm()->addRow(toQString(label), name_);
    content()->addStretch();
}

void NameDialog::setName(const std::u16string& name) {
    name_->setMaxLength(static_cast<int>(std::max(billing::maxNameLength, name.size())));
    name_->setText(toQString(name));
    name_->selectAll();
}

void NameDialog::addCheckBox(const resources::Text& text, bool checked) {
    box_ = new QCheckBox(toQString(text));
    box_->setChecked(checked);
    content()->insertWidget(content()->count() - 1, box_);
}

bool NameDialog::isChecked() const {
    return box_ != nullptr && box_->isChecked();
}

void NameDialog::accept() {
    const std::u16string name = billing::trimmedName(platform::toU16(name_->text()));
    if (const auto refusal = check(name)) {
        showRefusal(workspace(), *refusal);
        name_->setFocus();
        return;
    }
    if (accepted(name))
        QDialog::accept();
}

void showRefusal(Workspace& workspace, const billing::NameRefusal& refusal) {
    if (refusal.error != platform::PlatformError::none)
        workspace.messages().showError(platform::number(refusal.error));
    else
        workspace.messages().showCheck(refusal.message);
}

} // namespace hourwright::desktop
