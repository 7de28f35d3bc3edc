#pragma once

#include "billing/odometer_texts.h"
#include "desktop/expenses/expense_fields.h"
#include "store/client_tree.h"

#include <QWidget>
#include <optional>
#include <vector>

namespace hourwright::desktop {

/// The fields of one expense. What the client offers narrows projects and contacts.
class ExpenseForm : public QWidget {
    Q_OBJECT

public:
    ExpenseForm(Workspace& workspace, const store::ExpenseEntry& expense, QWidget* parent = nullptr);

    /// What was touched since the form opened.
    [[nodiscard]] billing::ExpenseDraft touched() const;
    [[nodiscard]] bool isTouched() const { return touched() != billing::ExpenseDraft{}; }
    /// What is wrong with a typed end odometer, as a refusal of the start, behind which it stands.
    [[nodiscard]] std::optional<billing::FieldRefusal<billing::OdometerField>> checkEnd() const;

    /// All that stands in the fields, and the end odometer if one was typed.
    [[nodiscard]] billing::ExpenseDraft read() const;
    [[nodiscard]] std::optional<std::u16string> typedEndOdometer() const;
    void restore(const billing::ExpenseDraft& draft, const std::optional<std::u16string>& typedEndOdometer);

    void focusOn(billing::ExpenseField field);
    void focusOnEnd();

private:
    void fillLists();
    void fill(const billing::ExpenseDraft& draft);
    void readOwn(billing::ExpenseDraft& draft) const;
    [[nodiscard]] store::EntryStatus status() const;
    void clientChanged();
    void offerOf(const store::ClientTree* client);
    void showAmount();

    Workspace& workspace_;
    store::ExpenseEntry expense_;
    std::vector<store::ClientTree> clients_;
    const store::ClientTree* client_ = nullptr; ///< the last one known
    billing::ExpenseDraft shown_;
    ExpenseFields fields_;
};

} // namespace hourwright::desktop
