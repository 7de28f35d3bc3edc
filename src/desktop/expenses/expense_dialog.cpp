#include "desktop/expenses/expense_dialog.h"

#include "billing/expense_draft.h"
#include "desktop/editor/field_widgets.h"
#include "desktop/editor/save_record.h"
#include "desktop/expenses/expense_form.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/expenses.h"
#include "store/read_record.h"

#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

namespace texts = resources::expenses;
using billing::ExpenseField;
using resources::StringId;
using store::ExpenseEntry;
using store::RecordId;

namespace {

constexpr int leastWidth = 440;
constexpr int frameHeight = 60; // what the desktop draws around a window, about

const resources::Text& titleOf(const ExpenseEntry& expense) {
    const bool isNew = expense.id == RecordId::none;
    if (expense.type == store::ExpenseType::mileage)
        return isNew ? texts::newMileage : texts::editMileage;
    return isNew ? texts::newGeneral : texts::editGeneral;
}

} // namespace

ExpenseDialog::ExpenseDialog(Workspace& workspace, ExpenseEntry expense, QWidget* parent)
    : Dialog(workspace, platform::toQString(titleOf(expense)), "addexpense", parent), expense_(std::move(expense)),
      form_(new ExpenseForm(workspace, expense_)) {
    content()->addWidget(form_);
    content()->addStretch();
    form_->focusOn(ExpenseField::client);
    // By itself a dialog takes at most two thirds of the screen, and this one would scroll.
    resize(std::max(width(), leastWidth),
           std::min(sizeHint().height(), screen()->availableGeometry().height() - frameHeight));
}

void ExpenseDialog::accept() {
    const bool isNew = expense_.id == RecordId::none;
    if (!isNew && !form_->isTouched()) {
        QDialog::accept();
        return;
    }
    ExpenseEntry typed = expense_;
    if (!check(typed))
        return;
    if (aboutToStore)
        aboutToStore();
    if (!saveRecord(workspace(), (isNew ? texts::undoAdd : texts::undoChange).text, typed, expense_))
        return;
    expense_ = std::move(typed);
    QDialog::accept();
}

void ExpenseDialog::reject() {
    if (!isChanged() || workspace().messages().ask(StringId::discardChanges))
        QDialog::reject();
}

bool ExpenseDialog::isChanged() const {
    return restored_ || form_->isTouched();
}

std::optional<app::KeptRecord> ExpenseDialog::draftToKeep() const {
    if (!isChanged())
        return std::nullopt;
    return app::KeptExpense{.stored = expense_, .draft = form_->read(), .typedEndOdometer = form_->typedEndOdometer()};
}

void ExpenseDialog::restore(const app::KeptExpense& kept) {
    restored_ = true;
    form_->restore(kept.draft, kept.typedEndOdometer);
}

// Takes what was typed over into the expense. The end odometer stands behind the start, and so does its check.
bool ExpenseDialog::check(ExpenseEntry& typed) {
    const auto refusal = billing::applyDraft(form_->touched(), typed);
    const auto endRefusal = form_->checkEnd();
    if (endRefusal && (!refusal || refusal->field > ExpenseField::startOdometer)) {
        showRefusal(workspace(), *endRefusal);
        form_->focusOnEnd();
        return false;
    }
    if (refusal) {
        showRefusal(workspace(), *refusal);
        form_->focusOn(refusal->field);
    }
    return !refusal;
}

std::optional<ExpenseEntry> readExpense(store::Stores& stores, RecordId id) {
    ExpenseEntry expense;
    switch (store::readRecord(stores, id, expense)) {
    case store::ReadResult::ok: return expense;
    case store::ReadResult::noMore: return ExpenseEntry{};
    case store::ReadResult::failed: break;
    }
    return std::nullopt;
}

} // namespace hourwright::desktop
