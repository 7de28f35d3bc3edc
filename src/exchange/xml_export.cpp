#include "exchange/xml_export.h"

#include "exchange/document_file.h"
#include "exchange/time_entry_xml.h"

#include <memory>
#include <string>
#include <utility>

namespace hourwright::exchange {

ExportResult exportXml(store::RecordStore& entries, const store::DateRange& range, const TimeEntryFilter& accepts,
                       const XmlOptions& options, const ExportTarget& target) {
    const auto form = options.encoding == app::XmlEncoding::utf16 ? DocumentBytes::utf16 : DocumentBytes::ansi;
    const auto documentFile = [&](std::unique_ptr<platform::FileWriter> writer) {
        return DocumentFile(std::move(writer), form, target.systemLocale.ansiCodePage());
    };
    TimeEntryXml xml(options);
    const std::u16string begin(xml.begin());
    const std::u16string end(xml.end());
    AcceptedRecords<store::TimeEntry> records(entries, range, accepts);
    records.start();
    if (records.failed())
        return {ExportStatus::readFailed, records.error()};
    return writeExport(
        records, target, documentFile, begin, [&xml](const store::TimeEntry& entry) { return xml.item(entry); }, end);
}

} // namespace hourwright::exchange
