#pragma once

#include "exchange/csv_options.h"
#include "exchange/export_target.h"
#include "store/date_walk.h"

#include <functional>

namespace hourwright::exchange {

/// Decide which records of the range are exported.
using TimeEntryFilter = std::function<bool(const store::TimeEntry&)>;
using ExpenseFilter = std::function<bool(const store::ExpenseEntry&)>;

/// Writes a header line and one line for every record of the range that the filter accepts, in date order. Nothing in
/// the range leaves a file with the header. After a failure the file stays with what was written.
[[nodiscard]] ExportResult exportTimeEntries(store::RecordStore& entries, const store::DateRange& range,
                                             const TimeEntryFilter& accepts, const CsvOptions& options,
                                             const ExportTarget& target);

/// The same for the expenses of one type; others are passed over.
[[nodiscard]] ExportResult exportExpenses(store::RecordStore& expenses, store::ExpenseType type,
                                          const store::DateRange& range, const ExpenseFilter& accepts,
                                          const CsvOptions& options, const ExportTarget& target);

} // namespace hourwright::exchange
