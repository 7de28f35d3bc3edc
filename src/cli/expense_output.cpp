#include "cli/expense_output.h"

#include "app/expense_columns.h"
#include "billing/expense_amount.h"
#include "cli/date_text.h"
#include "cli/display_width.h"
#include "cli/record_access.h"
#include "cli/record_values.h"
#include "resources/strings.h"

namespace hourwright::cli {

namespace {

using resources::StringId;
using store::ExpenseEntry;

void writeMoney(JsonWriter& json, const ExpenseEntry& expense) {
    json.member("start_odometer", expense.startOdometer).member("distance", expense.distance);
    json.member("end_odometer", store::endOdometer(expense));
    json.member("amount_hundredths", expense.amount).member("amount", billing::amountOf(expense));
    json.member("currency", expense.currency).member("status", static_cast<std::uint16_t>(expense.status));
}

} // namespace

bool readExpense(Session& session, store::Stores& stores, store::RecordId id, ExpenseEntry& out) {
    store::RecordStore& expenses = stores.expenses();
    if (!seekRecord(session, expenses, id, "expense"))
        return false;
    if (store::readExpenseEntry(expenses, out) == store::ReadResult::ok)
        return true;
    session.fail(expenses.lastError());
    return false;
}

void writeExpense(JsonWriter& json, const ExpenseEntry& expense) {
    json.beginObject().member("id", static_cast<std::uint32_t>(expense.id));
    json.member("type", static_cast<std::uint16_t>(expense.type));
    writeTime(json, "date", platform::toSystemTime(expense.date), dateText);
    json.member("description", expense.description).member("client", expense.client);
    json.member("project", expense.project).member("category", expense.category);
    writeMoney(json, expense);
    json.member("receipt", expense.receipt);
    writeTime(json, "paid_date", unlessZero(expense.paidDate), dateText);
    json.member("bill_to", expense.billTo).member("custom1", expense.custom1).member("custom2", expense.custom2);
    json.member("note", expense.note);
    writeTime(json, "modified", platform::toSystemTime(expense.modified), dateTimeText);
    json.member("flags", expense.flags).endObject();
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
