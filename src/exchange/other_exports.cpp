#include "exchange/other_exports.h"

#include "exchange/icalendar.h"
#include "exchange/record_json.h"
#include "exchange/text_sink.h"
#include "exchange/utf8_file.h"

#include <string>

namespace hourwright::exchange {

namespace {

Utf8File utf8File(std::unique_ptr<platform::FileWriter> writer) {
    return Utf8File(std::move(writer));
}

class StringSink : public TextSink {
public:
    void write(std::string_view bytes) override { text += bytes; }

    std::string text;
};

// The brackets stand on lines of their own, so the end of the document does not depend on what is in it.
template<typename Record, typename Write>
ExportResult exportJsonArray(AcceptedRecords<Record>& records, const ExportTarget& target, Write write) {
    StringSink sink;
    bool first = true;
    return writeExport<std::string_view>(
        records, target, utf8File, "[",
        [&](const Record& record) -> std::string_view {
            sink.text = first ? "\n" : ",\n";
            first = false;
            JsonWriter writer(sink);
            write(writer, record);
            return sink.text;
        },
        "\n]\n");
}

} // namespace

ExportResult exportSpreadsheet(store::RecordStore& entries, const store::DateRange& range,
                               const TimeEntryFilter& accepts, const SpreadsheetOptions& options,
                               const ExportTarget& target) {
    SpreadsheetCsv csv(options);
    const std::string header(csv.entryHeader());
    AcceptedRecords<store::TimeEntry> records(entries, range, accepts);
    return writeExport<std::string_view>(records, target, utf8File, header,
                                         [&csv](const store::TimeEntry& entry) { return csv.line(entry); });
}

ExportResult exportSpreadsheet(store::RecordStore& expenses, const store::DateRange& range,
                               const ExpenseFilter& accepts, const SpreadsheetOptions& options,
                               const ExportTarget& target) {
    SpreadsheetCsv csv(options);
    const std::string header(csv.expenseHeader());
    AcceptedRecords<store::ExpenseEntry> records(expenses, range, accepts);
    return writeExport<std::string_view>(records, target, utf8File, header,
                                         [&csv](const store::ExpenseEntry& expense) { return csv.line(expense); });
}

ExportResult exportJson(store::RecordStore& entries, const store::DateRange& range, const TimeEntryFilter& accepts,
                        const billing::TimeRules& rules, const ExportTarget& target) {
    EntryJson json(rules);
    AcceptedRecords<store::TimeEntry> records(entries, range, accepts);
    return exportJsonArray(records, target,
                           [&json](JsonWriter& writer, const store::TimeEntry& entry) { json.write(writer, entry); });
}

ExportResult exportJson(store::RecordStore& expenses, const store::DateRange& range, const ExpenseFilter& accepts,
                        const ExportTarget& target) {
    AcceptedRecords<store::ExpenseEntry> records(expenses, range, accepts);
    return exportJsonArray(records, target,
                           [](JsonWriter& writer, const store::ExpenseEntry& expense) { writeJson(writer, expense); });
}

ExportResult exportCalendar(store::RecordStore& entries, const store::DateRange& range, const TimeEntryFilter& accepts,
                            const platform::ClockReading& now, const ExportTarget& target) {
    ICalendar calendar(now);
    AcceptedRecords<store::TimeEntry> records(entries, range, accepts);
    return writeExport<std::string_view>(
        records, target, utf8File, ICalendar::begin(),
        [&calendar](const store::TimeEntry& entry) { return calendar.event(entry); }, ICalendar::end());
}

} // namespace hourwright::exchange
