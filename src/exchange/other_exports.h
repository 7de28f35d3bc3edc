#pragma once

#include "exchange/export_run.h"
#include "exchange/spreadsheet_csv.h"
#include "platform/clock.h"

/// Exports in widespread forms, for spreadsheets, programs and calendars. They share nothing with the CSV and XML files
/// whose form is fixed.
namespace hourwright::exchange {

/// A CSV file for spreadsheets (see `SpreadsheetCsv`) of the records that the filter accepts, in date order.
[[nodiscard]] ExportResult exportSpreadsheet(store::RecordStore& entries, const store::DateRange& range,
                                             const TimeEntryFilter& accepts, const SpreadsheetOptions& options,
                                             const ExportTarget& target);
[[nodiscard]] ExportResult exportSpreadsheet(store::RecordStore& expenses, const store::DateRange& range,
                                             const ExpenseFilter& accepts, const SpreadsheetOptions& options,
                                             const ExportTarget& target);

/// A JSON array of objects in the form of `hwctl entry list --json` and `hwctl expense list --json`.
[[nodiscard]] ExportResult exportJson(store::RecordStore& entries, const store::DateRange& range,
                                      const TimeEntryFilter& accepts, const billing::TimeRules& rules,
                                      const ExportTarget& target);
[[nodiscard]] ExportResult exportJson(store::RecordStore& expenses, const store::DateRange& range,
                                      const ExpenseFilter& accepts, const ExportTarget& target);

/// An iCalendar file of time entries (see `ICalendar`).
[[nodiscard]] ExportResult exportCalendar(store::RecordStore& entries, const store::DateRange& range,
                                          const TimeEntryFilter& accepts, const platform::ClockReading& now,
                                          const ExportTarget& target);

} // namespace hourwright::exchange
