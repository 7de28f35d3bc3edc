#include "exchange/spreadsheet_csv.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "billing/expense_amount.h"
#include "exchange/iso_dates.h"
#include "platform/number_text.h"
#include "platform/utf.h"

#include <algorithm>
#include <array>

namespace hourwright::exchange {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr std::array<std::string_view, 4> statusNames{"Non Billable", "Billable", "Billed", "Paid"};
constexpr std::array<std::string_view, 5> rateTypeNames{"Normal Rate", "Overtime Rate", "Weekend Rate", "Fixed Rate",
                                                        "Discount Rate"};

template<std::size_t size>
std::string nameOf(const std::array<std::string_view, size>& names, std::size_t number) {
    return number < size ? std::string(names[number]) : std::to_string(number);
}

bool runsAsFormula(std::string_view cell) {
    return !cell.empty() && std::string_view("=+-@\t\r").find(cell.front()) != std::string_view::npos;
}

} // namespace

bool isUsable(const SpreadsheetOptions& options) {
    const bool known = std::string_view(",;\t").find(options.delimiter) != std::string_view::npos;
    return known && (options.decimalMark == '.' || options.decimalMark == ',') &&
           options.delimiter != options.decimalMark;
}

void SpreadsheetCsv::begin() {
    line_.clear();
    first_ = true;
}

void SpreadsheetCsv::plain(std::string_view cell) {
    if (!first_)
        line_ += options_.delimiter;
    first_ = false;
    const std::array<char, 4> special{options_.delimiter, '"', '\r', '\n'};
    if (std::ranges::find_first_of(cell, special) == cell.end()) {
        line_ += cell;
        return;
    }
    line_ += '"';
    for (const char c : cell) {
        line_ += c;
        if (c == '"')
            line_ += '"';
    }
    line_ += '"';
}

void SpreadsheetCsv::text(std::u16string_view cell) {
    std::string utf8 = platform::printableUtf8(cell);
    if (runsAsFormula(utf8))
        utf8.insert(0, 1, '\'');
    plain(utf8);
}

void SpreadsheetCsv::number(double value) {
    std::string cell = platform::fixedDecimals(value, 2);
    std::ranges::replace(cell, '.', options_.decimalMark);
    plain(cell);
}

void SpreadsheetCsv::hundredths(std::int64_t value) {
    std::string cell = platform::hundredths(value);
    std::ranges::replace(cell, '.', options_.decimalMark);
    plain(cell);
}

void SpreadsheetCsv::date(platform::FileTime instant) {
    const auto fields = unlessZero(instant);
    plain(fields ? dateText(*fields) : std::string());
}

void SpreadsheetCsv::note(const store::TimeEntry& entry) {
    std::u16string plainText(notes_.convert(entry.note));
    std::erase(plainText, u'\r');
    text(plainText);
}

std::string_view SpreadsheetCsv::finish() {
    line_ += "\r\n";
    return line_;
}

std::string_view SpreadsheetCsv::entryHeader() {
    begin();
    for (const std::string_view title : {"Date", "Start", "End", "Hours", "Break", "Client", "Project", "Phase", "Task",
                                         "Status", "Currency", "Rate", "Rate Type", "Amount", "Bill To", "Paid Date"})
        plain(title);
    for (const std::u16string& caption : options_.csv.captions)
        text(caption);
    plain("Note");
    const std::string header((options_.byteOrderMark ? byteOrderMark : std::string_view{}));
    line_.insert(0, header);
    return finish();
}

std::string_view SpreadsheetCsv::line(const store::TimeEntry& entry) {
    const auto start = store::hasStart(entry) ? platform::toSystemTime(entry.date) : std::nullopt;
    begin();
    date(entry.date);
    plain(start ? timeText(*start) : std::string());
    plain(start ? timeText(billing::endTime(*start, entry)) : std::string());
    hundredths(entry.duration);
    hundredths(entry.breakTime);
    for (const std::u16string* const field : {&entry.client, &entry.project, &entry.phase, &entry.task})
        text(*field);
    plain(nameOf(statusNames, static_cast<std::size_t>(entry.status)));
    text(entry.currency);
    hundredths(entry.rate);
    plain(nameOf(rateTypeNames, static_cast<std::size_t>(entry.rateType)));
    number(billing::billableAmountOf(entry, options_.csv.rules));
    text(entry.billTo);
    date(entry.paidDate);
    for (const std::u16string* const field : {&entry.custom1, &entry.custom2, &entry.custom3})
        text(*field);
    note(entry);
    return finish();
}

std::string_view SpreadsheetCsv::expenseHeader() {
    begin();
    for (const std::string_view title :
         {"Date", "Type", "Description", "Client", "Project", "Category", "Start Odometer", "End Odometer", "Distance",
          "Receipt", "Status", "Currency", "Amount", "Bill To", "Paid Date"})
        plain(title);
    for (const std::u16string& caption : options_.csv.expenseCaptions)
        text(caption);
    plain("Note");
    const std::string header((options_.byteOrderMark ? byteOrderMark : std::string_view{}));
    line_.insert(0, header);
    return finish();
}

std::string_view SpreadsheetCsv::line(const store::ExpenseEntry& expense) {
    const bool mileage = expense.type == store::ExpenseType::mileage;
    const auto whole = [mileage](std::uint64_t value) { return mileage ? std::to_string(value) : std::string(); };
    begin();
    date(expense.date);
    plain(mileage ? "Mileage" : "General");
    for (const std::u16string* const field :
         {&expense.description, &expense.client, &expense.project, &expense.category})
        text(*field);
    plain(whole(expense.startOdometer));
    plain(whole(store::endOdometer(expense)));
    plain(whole(expense.distance));
    plain(expense.receipt ? "Yes" : "No");
    plain(nameOf(statusNames, static_cast<std::size_t>(expense.status)));
    text(expense.currency);
    number(billing::amountOf(expense));
    text(expense.billTo);
    date(expense.paidDate);
    text(expense.custom1);
    text(expense.custom2);
    text(expense.note);
    return finish();
}

} // namespace hourwright::exchange
