#pragma once

#include "app/display_settings.h"
#include "platform/locale.h"
#include "store/time_entry.h"

#include <string>

namespace hourwright::app {

/// What a calendar writes on an entry.
struct EntryLabel {
    std::u16string time;     ///< as the display settings want it; may be empty
    std::u16string start;    ///< the start alone, as short as it goes; empty without one or when no times are wanted
    std::u16string title;    ///< client and project, or what there is
    std::u16string detail;   ///< the rest
    std::u16string initials; ///< of the title, for the narrowest columns
    std::u16string full;     ///< everything, line by line, for a tooltip or to be read aloud

    friend bool operator==(const EntryLabel&, const EntryLabel&) = default;
};

[[nodiscard]] EntryLabel entryLabel(const store::TimeEntry& entry, const DisplaySettings& display,
                                    const platform::Locale& locale);

/// A time of day as short as it goes: "9 AM" for "9:00 AM"; "09:00" stays.
[[nodiscard]] std::u16string shortTime(const platform::SystemTime& time, const platform::Locale& locale);

/// Start and end of an entry, "9:00 AM – 10:30 AM", an end on another day being that day's time; the start alone
/// without hours. Empty without a start.
[[nodiscard]] std::u16string startAndEnd(const store::TimeEntry& entry, const platform::Locale& locale);

/// An entry as a line with tabs: date, start, end, hours, client, project, phase, task.
[[nodiscard]] std::u16string entryLine(const store::TimeEntry& entry, const platform::Locale& locale);

/// Up to two letters that stand for a name: the first of its first two words, or its first two.
[[nodiscard]] std::u16string initialsOf(std::u16string_view name);

} // namespace hourwright::app
