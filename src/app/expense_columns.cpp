#include "app/expense_columns.h"

#include "billing/expense_amount.h"
#include "platform/number_text.h"

#include <array>

namespace hourwright::app {

namespace {

using resources::StringId;
using store::ExpenseEntry;
using store::ExpenseType;

template<std::u16string ExpenseEntry::*text>
std::u16string expenseText(const ExpenseEntry& expense, const CellContext& context) {
    return textCell<ExpenseEntry, text>(expense, context);
}

std::u16string date(const ExpenseEntry& expense, const CellContext& context) {
    return dateCell(expense.date, context);
}

std::u16string type(const ExpenseEntry& expense, const CellContext& /*context*/) {
    const bool mileage = expense.type == ExpenseType::mileage;
    return std::u16string(resources::string(mileage ? StringId::expenseMileage : StringId::expenseGeneral));
}

std::u16string receipt(const ExpenseEntry& expense, const CellContext& /*context*/) {
    return expense.receipt ? std::u16string(resources::string(StringId::expenseHasReceipt)) : std::u16string{};
}

std::u16string amount(const ExpenseEntry& expense, const CellContext& context) {
    return moneyCell(billing::amountOf(expense), context);
}

// A reading or distance of a mileage expense.
template<std::uint64_t (*reading)(const ExpenseEntry&)>
std::u16string ifMileage(const ExpenseEntry& expense, const CellContext& context) {
    if (expense.type != ExpenseType::mileage)
        return {};
    std::u16string plain;
    platform::appendInteger(plain, static_cast<std::int64_t>(reading(expense)));
    return context.locale.number(plain);
}

std::uint64_t startOdometer(const ExpenseEntry& expense) {
    return expense.startOdometer;
}

std::uint64_t distance(const ExpenseEntry& expense) {
    return expense.distance;
}

constexpr std::array<ExpenseColumn, expenseColumnCount> columns{{
    {"date", StringId::expenseDate, 80, false, date},
    {"type", StringId::expenseType, 60, false, type},
    {"description", StringId::expenseDescription, 100, false, expenseText<&ExpenseEntry::description>},
    {"client", StringId::columnClient, 100, false, expenseText<&ExpenseEntry::client>},
    {"project", StringId::columnProject, 100, false, expenseText<&ExpenseEntry::project>},
    {"category", StringId::expenseCategory, 80, false, expenseText<&ExpenseEntry::category>},
    {"currency", StringId::columnCurrency, 65, false, expenseText<&ExpenseEntry::currency>},
    {"amount", StringId::columnAmount, 60, true, amount},
    {"bill-to", StringId::columnBillTo, 80, false, expenseText<&ExpenseEntry::billTo>},
    {"custom1", StringId::columnCustom1, 70, false, expenseText<&ExpenseEntry::custom1>},
    {"custom2", StringId::columnCustom2, 70, false, expenseText<&ExpenseEntry::custom2>},
    {"receipt", StringId::expenseReceipt, 50, false, receipt},
    {"start-odo", StringId::expenseStartOdometer, 65, true, ifMileage<startOdometer>},
    {"end-odo", StringId::expenseEndOdometer, 65, true, ifMileage<store::endOdometer>},
    {"distance", StringId::expenseDistance, 60, true, ifMileage<distance>},
}};

} // namespace

std::span<const ExpenseColumn, expenseColumnCount> expenseColumns() {
    return columns;
}

std::u16string cellText(const ExpenseEntry& expense, std::size_t column, const platform::Locale& locale) {
    static constexpr billing::TimeRules noHours{};
    return column < columns.size() ? columns[column].cell(expense, {locale, noHours}) : std::u16string{};
}

RowImage getRowImage(const ExpenseEntry& expense) {
    return {.icon = statusIcon(expense.status), .noteOverlay = !expense.note.empty()};
}

} // namespace hourwright::app
