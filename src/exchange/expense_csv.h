#pragma once

#include "exchange/csv_line.h"
#include "exchange/csv_options.h"
#include "exchange/date_cells.h"
#include "store/expense_entry.h"

#include <string>
#include <string_view>

namespace hourwright::exchange {

/// Builds the lines of a CSV file of expenses, each with its CR LF.
class ExpenseCsv {
public:
    /// Borrows the locale, which is to be the system's own.
    ExpenseCsv(CsvOptions options, const platform::Locale& systemLocale);

    [[nodiscard]] std::u16string header(store::ExpenseType type) const;
    /// Valid until the next call.
    [[nodiscard]] std::u16string_view line(const store::ExpenseEntry& expense);

private:
    void addAmount(const store::ExpenseEntry& expense);

    CsvOptions options_;
    DateCells dates_;
    CsvLine line_;
};

} // namespace hourwright::exchange
