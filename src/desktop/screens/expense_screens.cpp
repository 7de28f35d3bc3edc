#include "billing/new_entry.h"
#include "desktop/expenses/expense_dialog.h"
#include "desktop/screens/screens.h"
#include "store/date_walk.h"

namespace hourwright::desktop {

namespace {

// The last expense of a type.
QWidget* expenseDialog(MainWindow& window, store::ExpenseType type) {
    auto& workspace = window.workspace();
    store::ExpenseEntry last = billing::newExpense(type, {}, workspace.clock().localTime());
    store::DateWalk walk(workspace.stores().expenses(), {});
    for (store::ExpenseEntry expense; walk.next(expense) == store::ReadResult::ok;)
        if (expense.type == type)
            last = expense;
    return new ExpenseDialog(workspace, last, &window);
}

} // namespace

void addExpenseScreens(std::vector<Screen>& screens) {
    screens.push_back({"expense-general", [](MainWindow& window) -> QWidget* {
                           return expenseDialog(window, store::ExpenseType::general);
                       }});
    screens.push_back({"expense-mileage", [](MainWindow& window) -> QWidget* {
                           return expenseDialog(window, store::ExpenseType::mileage);
                       }});
}

} // namespace hourwright::desktop
