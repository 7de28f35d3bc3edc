#include "exchange/expense_csv.h"

#include "billing/expense_amount.h"
#include "resources/strings.h"

#include <utility>

namespace hourwright::exchange {

namespace {

// Odometer readings are written as the signed numbers that readers of the file take them for.
std::int32_t asSigned(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}

} // namespace

ExpenseCsv::ExpenseCsv(CsvOptions options, const platform::Locale& systemLocale)
    : options_(std::move(options)), dates_(systemLocale) {}

// The first text ends with the opening quote of the next cell, and so does each caption.
std::u16string ExpenseCsv::header(store::ExpenseType type) const {
    using enum resources::StringId;
    std::u16string header(resources::string(type == store::ExpenseType::mileage ? csvMileageHeader : csvGeneralHeader));
    for (const std::u16string& caption : options_.expenseCaptions)
        header.append(caption).append(u"\",\"");
    header += resources::string(csvExpenseHeaderEnd);
    return header.append(u"\r\n");
}

std::u16string_view ExpenseCsv::line(const store::ExpenseEntry& expense) {
    line_.clear();
    line_.integer(static_cast<std::uint16_t>(expense.type));
    line_.text(dates_.date(expense.date));
    for (const std::u16string* const text : {&expense.description, &expense.client, &expense.project})
        line_.text(*text);
    if (expense.type == store::ExpenseType::mileage) {
        line_.integer(asSigned(expense.startOdometer));
        line_.integer(asSigned(expense.distance));
    } else {
        line_.text(expense.category);
    }
    line_.text(expense.receipt ? u"Y" : u"N");
    line_.text(expense.currency);
    addAmount(expense);
    line_.integer(static_cast<std::uint16_t>(expense.status));
    expense.paidDate.ticks != 0 ? line_.text(dates_.date(expense.paidDate)) : line_.empty();
    for (const std::u16string* const text : {&expense.billTo, &expense.custom1, &expense.custom2, &expense.note})
        line_.text(*text);
    return line_.finish();
}

// The rate of a mileage expense follows the currency's cell directly, without comma and quotes: so the files have
// always been, and so they are read.
void ExpenseCsv::addAmount(const store::ExpenseEntry& expense) {
    if (expense.type == store::ExpenseType::mileage)
        platform::appendHundredths(line_.content(), expense.amount);
    line_.twoDecimals(billing::amountOf(expense));
}

} // namespace hourwright::exchange
