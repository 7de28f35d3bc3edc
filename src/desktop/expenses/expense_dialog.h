#pragma once

#include "desktop/dialog.h"
#include "desktop/drafts/draft_source.h"
#include "store/expense_entry.h"

namespace hourwright::desktop {

class ExpenseForm;

/// Edits one expense, general or mileage; one without id is new. OK stores it. What somebody else has changed
/// meanwhile is kept, and the user asked where both have changed the same.
class ExpenseDialog : public Dialog, public DraftSource {
    Q_OBJECT

public:
    ExpenseDialog(Workspace& workspace, store::ExpenseEntry expense, QWidget* parent);

    /// The expense as it was stored, after OK.
    [[nodiscard]] const store::ExpenseEntry& expense() const { return expense_; }

    void accept() override;
    void reject() override;

    [[nodiscard]] std::optional<app::KeptRecord> draftToKeep() const override;
    /// Goes on with a draft of the expense that it was made with. It counts as changed.
    void restore(const app::KeptExpense& kept);

private:
    [[nodiscard]] bool check(store::ExpenseEntry& typed);
    [[nodiscard]] bool isChanged() const;

    store::ExpenseEntry expense_; ///< as it opened
    bool restored_ = false;
    ExpenseForm* form_;
};

/// The expense with this id; without id when there is none, nothing when it could not be read.
[[nodiscard]] std::optional<store::ExpenseEntry> readExpense(store::Stores& stores, store::RecordId id);

} // namespace hourwright::desktop
