#pragma once

#include "billing/time_rules.h"
#include "exchange/csv_options.h"
#include "exchange/note_text_converter.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <string>
#include <string_view>

namespace hourwright::exchange {

/// How a file for spreadsheets is written. Delimiter and decimal mark must differ.
struct SpreadsheetOptions {
    char delimiter = ',';      ///< ',', ';' or a tab
    char decimalMark = '.';    ///< '.' or ','
    bool byteOrderMark = true; ///< some spreadsheets take a file without one for their own code page
    CsvOptions csv;            ///< captions of the custom fields and the rules of amounts
};

/// True when delimiter and decimal mark are among those above and differ.
[[nodiscard]] bool isUsable(const SpreadsheetOptions& options);

/// Builds the lines of a CSV file for spreadsheets: UTF-8, RFC 4180 (a field with a delimiter, quote or line break
/// stands in quotes, quotes in it are doubled, lines end with CR LF), dates "YYYY-MM-DD", times "HH:MM", numbers with
/// two decimals and no grouping. A text that a spreadsheet would run as a formula (it begins with = + - @, a tab or a
/// CR) gets an apostrophe in front. Texts are valid until the next call.
class SpreadsheetCsv {
public:
    explicit SpreadsheetCsv(const SpreadsheetOptions& options) : options_(options) {}

    [[nodiscard]] std::string_view entryHeader();
    [[nodiscard]] std::string_view line(const store::TimeEntry& entry);
    [[nodiscard]] std::string_view expenseHeader();
    [[nodiscard]] std::string_view line(const store::ExpenseEntry& expense);

private:
    void begin();
    void text(std::u16string_view cell);
    void plain(std::string_view cell);
    void number(double value);
    void hundredths(std::int64_t value);
    void date(platform::FileTime instant);
    void note(const store::TimeEntry& entry);
    [[nodiscard]] std::string_view finish();

    SpreadsheetOptions options_;
    NoteTextConverter notes_;
    std::string line_;
    bool first_ = true;
};

} // namespace hourwright::exchange
