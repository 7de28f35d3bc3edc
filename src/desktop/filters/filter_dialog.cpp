#include "desktop/filters/filter_dialog.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/filters.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::filters;
using platform::toQString;

namespace {

constexpr auto helpAnchor = "filter";

template<typename Filter, typename Form>
void addReset(QDialogButtonBox* buttons, Form* form) {
    auto* reset = buttons->addButton(toQString(texts::showAll), QDialogButtonBox::ResetRole);
    reset->setAutoDefault(false);
    QObject::connect(reset, &QPushButton::clicked, form, [form] { form->display(Filter{}); });
}

} // namespace

EntryFilterDialog::EntryFilterDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::entryTitle), helpAnchor, parent),
      form_(new EntryFilterForm(workspace, FilterExtent::all)) {
    content()->addWidget(form_);
    form_->display(workspace.entryFilter());
    addReset<app::EntryFilter>(buttons(), form_);
}

void EntryFilterDialog::accept() {
    if (!form_->check())
        return;
    form_->store(workspace().entryFilter());
    QDialog::accept();
    workspace().saveFilters();
}

ExpenseFilterDialog::ExpenseFilterDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::expenseTitle), helpAnchor, parent),
      form_(new ExpenseFilterForm(workspace, FilterExtent::all)) {
    content()->addWidget(form_);
    form_->display(workspace.expenseFilter());
    addReset<app::ExpenseFilter>(buttons(), form_);
}

void ExpenseFilterDialog::accept() {
    if (!form_->check())
        return;
    form_->store(workspace().expenseFilter());
    QDialog::accept();
    workspace().saveFilters();
}

} // namespace hourwright::desktop
