#include "desktop/expenses/expense_dialog.h"

#include "billing/expense_draft.h"
#include "desktop/editor/field_widgets.h"
#include "desktop/expenses/expense_form.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/expenses.h"
#include "store/read_record.h"
#include "store/save.h"

#include <QScreen>
#include <QShortcut>
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
    // Enter begins a line in the note.
    auto* save = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), this);
    connect(save, &QShortcut::activated, this, [this] { accept(); });
}

void ExpenseDialog::accept() {
    const bool isNew = expense_.id == RecordId::none;
    if (!isNew && !form_->isTouched()) {
        QDialog::accept();
        return;
    }
    if (!check() || !agreeWithStore())
        return;
    const auto& name = isNew ? texts::undoAdd : texts::undoChange;
    if (workspace().change(name.text, [this](platform::Transaction& transaction) { return write(transaction); }))
        QDialog::accept();
}

void ExpenseDialog::reject() {
    if (!form_->isTouched() ||
        workspace().messages().ask(StringId::discardChanges, platform::Icon::question, platform::Answer::no))
        QDialog::reject();
}

// The end odometer stands behind the start, and so does its check.
bool ExpenseDialog::check() {
    ExpenseEntry typed = expense_;
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

// Whether the expense may be written over what is stored now. One that was deleted becomes a new one if wanted.
bool ExpenseDialog::agreeWithStore() {
    if (expense_.id == RecordId::none)
        return true;
    const auto ask = [this](StringId id) { return workspace().messages().ask(id); };
    const auto stored = readExpense(workspace().stores(), expense_.id);
    if (!stored) {
        workspace().showStoreError();
        return false;
    }
    if (stored->id != RecordId::none)
        return !billing::collides(form_->touched(), expense_, *stored) || ask(StringId::recordChangedMeanwhile);
    if (!ask(StringId::recordDeletedMeanwhile))
        return false;
    expense_.id = RecordId::none;
    return true;
}

bool ExpenseDialog::write(platform::Transaction& transaction) {
    auto& stores = workspace().stores();
    ExpenseEntry changed = expense_;
    if (expense_.id != RecordId::none) {
        auto stored = readExpense(stores, expense_.id);
        if (!stored || stored->id == RecordId::none)
            return false;
        changed = std::move(*stored);
    }
    if (billing::applyDraft(form_->touched(), changed))
        return false;
    changed.modified = workspace().clock().now();
    if (!store::saveExpenseEntry(transaction, stores, changed))
        return false;
    expense_ = std::move(changed);
    return true;
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
