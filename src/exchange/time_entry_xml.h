#pragma once

#include "exchange/note_text_converter.h"
#include "exchange/xml_options.h"
#include "exchange/xml_text.h"
#include "store/time_entry.h"

#include <optional>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// Builds an XML file of time entries: what stands before the entries, an element for each, and what stands behind.
/// Each text is valid until the next call. A date beyond the calendar is written as an empty DATE, without a start.
class TimeEntryXml {
public:
    explicit TimeEntryXml(const XmlOptions& options) : options_(options) {}

    [[nodiscard]] std::u16string_view begin();
    [[nodiscard]] std::u16string_view item(const store::TimeEntry& entry);
    [[nodiscard]] std::u16string_view end();

private:
    void addDate(const std::optional<platform::SystemTime>& date);
    void addTimes(platform::SystemTime start, const store::TimeEntry& entry);
    void addRateAndAmount(const store::TimeEntry& entry);
    void addNotes(const store::TimeEntry& entry);

    XmlOptions options_;
    NoteTextConverter notes_;
    XmlText xml_;
    std::u16string value_;
};

} // namespace hourwright::exchange
