#include "exchange/csv_export.h"

#include "exchange/expense_csv.h"
#include "exchange/text_file.h"
#include "exchange/time_entry_csv.h"

#include <memory>
#include <utility>

namespace hourwright::exchange {

namespace {

// Makes the file that the lines are written to.
auto textFileFor(const ExportTarget& target) {
    return [&target](std::unique_ptr<platform::FileWriter> writer) {
        return TextFile(std::move(writer), target.systemLocale.ansiCodePage());
    };
}

} // namespace

ExportResult exportTimeEntries(store::RecordStore& entries, const store::DateRange& range,
                               const TimeEntryFilter& accepts, const CsvOptions& options, const ExportTarget& target) {
    TimeEntryCsv csv(options, target.systemLocale);
    AcceptedRecords<store::TimeEntry> records(entries, range, accepts);
    return writeExport(records, target, textFileFor(target), csv.header(),
                       [&csv](const store::TimeEntry& entry) { return csv.line(entry); });
}

ExportResult exportExpenses(store::RecordStore& expenses, store::ExpenseType type, const store::DateRange& range,
                            const ExpenseFilter& accepts, const CsvOptions& options, const ExportTarget& target) {
    ExpenseCsv csv(options, target.systemLocale);
    AcceptedRecords<store::ExpenseEntry> records(
        expenses, range, [&](const store::ExpenseEntry& expense) { return expense.type == type && accepts(expense); });
    return writeExport(records, target, textFileFor(target), csv.header(type),
                       [&csv](const store::ExpenseEntry& expense) { return csv.line(expense); });
}

} // namespace hourwright::exchange
