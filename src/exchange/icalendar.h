#pragma once

#include "exchange/note_text_converter.h"
#include "platform/clock.h"
#include "store/time_entry.h"

#include <string>
#include <string_view>

namespace hourwright::exchange {

/// Builds an iCalendar document (RFC 5545) of time entries: an event for each. Times are floating, as the entries are
/// in local time without a zone; an entry without a start time is an event of the whole day. The identity of an event
/// is that of its record, so that importing again replaces it. Texts are valid until the next call.
class ICalendar {
public:
    /// The reading of the clock stamps all events.
    explicit ICalendar(const platform::ClockReading& now);

    [[nodiscard]] static std::string_view begin();
    /// The event; empty for an entry dated beyond the calendar's four-digit years.
    [[nodiscard]] std::string_view event(const store::TimeEntry& entry);
    [[nodiscard]] static std::string_view end();

private:
    void line(std::string_view name, std::string_view value);
    void text(std::string_view name, std::u16string_view value);
    void times(const store::TimeEntry& entry, const platform::SystemTime& date);

    std::string stamp_;
    NoteTextConverter notes_;
    std::string event_;
};

} // namespace hourwright::exchange
