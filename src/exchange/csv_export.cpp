#include "exchange/csv_export.h"

#include "exchange/expense_csv.h"
#include "exchange/text_file.h"
#include "exchange/time_entry_csv.h"

#include <string_view>

namespace hourwright::exchange {

namespace {

using platform::PlatformError;

ExportResult failed(ExportStatus status, PlatformError error, std::uint64_t records) {
    return {status, error, records};
}

// Writes the accepted records of a walk, each as the line that `lineOf` gives.
template<typename Record, typename Accepts, typename LineOf>
ExportResult writeRecords(store::RecordStore& store, const store::DateRange& range, TextFile& file,
                          const Accepts& accepts, LineOf lineOf) {
    ExportResult result;
    Record record;
    store::DateWalk walk(store, range);
    for (;;) {
        switch (walk.next(record)) {
        case store::ReadResult::noMore: return result;
        case store::ReadResult::failed: return failed(ExportStatus::readFailed, store.lastError(), result.records);
        case store::ReadResult::ok: break;
        }
        if (!accepts(record))
            continue;
        if (!file.write(lineOf(record)))
            return failed(ExportStatus::writeFailed, file.error(), result.records);
        ++result.records;
    }
}

// Creates the file, writes the header, lets `writeBody` write the rest and closes the file, also after a failed read.
template<typename WriteBody>
ExportResult writeFile(const ExportTarget& target, std::u16string_view header, WriteBody writeBody) {
    auto created = target.files.create(target.path);
    if (!created.writer)
        return failed(ExportStatus::notCreated, created.error, 0);
    TextFile file(std::move(created.writer), target.systemLocale.ansiCodePage());
    if (!file.write(header))
        return failed(ExportStatus::writeFailed, file.error(), 0);
    const ExportResult result = writeBody(file);
    if (!file.close() && result.ok())
        return failed(ExportStatus::writeFailed, file.error(), result.records);
    return result;
}

} // namespace

ExportResult exportTimeEntries(store::RecordStore& entries, const store::DateRange& range,
                               const TimeEntryFilter& accepts, const CsvOptions& options, const ExportTarget& target) {
    TimeEntryCsv csv(options, target.systemLocale);
    return writeFile(target, csv.header(), [&](TextFile& file) {
        return writeRecords<store::TimeEntry>(entries, range, file, accepts,
                                              [&](const store::TimeEntry& entry) { return csv.line(entry); });
    });
}

ExportResult exportExpenses(store::RecordStore& expenses, store::ExpenseType type, const store::DateRange& range,
                            const ExpenseFilter& accepts, const CsvOptions& options, const ExportTarget& target) {
    ExpenseCsv csv(options, target.systemLocale);
    const auto wanted = [&](const store::ExpenseEntry& expense) { return expense.type == type && accepts(expense); };
    return writeFile(target, csv.header(type), [&](TextFile& file) {
        return writeRecords<store::ExpenseEntry>(expenses, range, file, wanted,
                                                 [&](const store::ExpenseEntry& expense) { return csv.line(expense); });
    });
}

} // namespace hourwright::exchange
