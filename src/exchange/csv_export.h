#pragma once

#include "exchange/csv_options.h"
#include "exchange/export_run.h"

namespace hourwright::exchange {

/// Writes a header line and one line for every record of the range that the filter accepts, in date order. Nothing in
/// the range leaves a file with the header.
[[nodiscard]] ExportResult exportTimeEntries(store::RecordStore& entries, const store::DateRange& range,
                                             const TimeEntryFilter& accepts, const CsvOptions& options,
                                             const ExportTarget& target);

/// The same for the expenses of one type; others are passed over.
[[nodiscard]] ExportResult exportExpenses(store::RecordStore& expenses, store::ExpenseType type,
                                          const store::DateRange& range, const ExpenseFilter& accepts,
                                          const CsvOptions& options, const ExportTarget& target);

} // namespace hourwright::exchange
