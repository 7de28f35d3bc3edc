#include "cli/expense_output.h"

#include "app/expense_columns.h"
#include "cli/display_width.h"
#include "cli/record_access.h"
#include "cli/record_values.h"
#include "resources/strings.h"

namespace hourwright::cli {

using resources::StringId;
using store::ExpenseEntry;

bool readExpense(Session& session, store::Stores& stores, store::RecordId id, ExpenseEntry& out) {
    store::RecordStore& expenses = stores.expenses();
    if (!seekRecord(session, expenses, id, "expense"))
        return false;
    if (store::readExpenseEntry(expenses, out) == store::ReadResult::ok)
        return true;
    session.fail(expenses.lastError());
    return false;
}

std::vector<std::string> expenseCells(const ExpenseEntry& expense, std::span<const std::uint32_t> columns,
                                      const platform::Locale& locale) {
    std::vector<std::string> cells{std::to_string(static_cast<std::uint32_t>(expense.id)), statusText(expense.status)};
    for (const std::uint32_t column : columns)
        cells.push_back(cellText(app::cellText(expense, column, locale)));
    return cells;
}

std::vector<TableColumn> expenseCellTitles(std::span<const std::uint32_t> columns) {
    std::vector<TableColumn> titles{{"ID", true}, {cellText(resources::string(StringId::columnStatus))}};
    for (const std::uint32_t column : columns) {
        const app::ExpenseColumn& of = app::expenseColumns()[column];
        titles.push_back({cellText(resources::string(of.title)), of.alignRight});
    }
    return titles;
}

} // namespace hourwright::cli
