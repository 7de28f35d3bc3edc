#pragma once

#include "billing/entry_draft.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace hourwright::billing {

/// The minutes of the quick-minute buttons, in their order.
inline constexpr std::array<std::uint16_t, 8> quickMinutes = {0, 10, 15, 20, 30, 40, 45, 50};

/// What stands in the dialog of start, break and end times. The end follows whenever start or break change; the
/// duration that it is reckoned from stays the entry's until `apply`.
class StartBreakEnd {
public:
    /// Opens on an entry: its start time, or now when it has none, and the end that its hours make of it.
    StartBreakEnd(const store::TimeEntry& entry, const platform::SystemTime& now);

    [[nodiscard]] const platform::SystemTime& start() const { return start_; }
    [[nodiscard]] const platform::SystemTime& end() const { return end_; }
    /// The break in hours, as typed or as the entry has it.
    [[nodiscard]] std::u16string breakText() const;

    /// Takes hour and minute; the day is the entry's.
    void setStart(const platform::SystemTime& time);
    /// Takes hour and minute on the day of the start. It is also what "Now" does with the current time.
    void setEnd(const platform::SystemTime& time);
    /// Takes the break typed. When that is refused the end stays as it is, and so does the refusal until the text is
    /// mended.
    std::optional<DraftRefusal> setBreak(std::u16string text);

    /// Sets the minute of the time picker that had the focus, start or end, and keeps the hour.
    void setStartMinute(std::uint16_t minute);
    void setEndMinute(std::uint16_t minute);

    /// Stores start, break and the duration between the times in the entry. An end with an earlier hour is on the next
    /// day. Returns why not, with the entry unchanged: a break that is no number, or error 87 for a duration that is
    /// negative or too large.
    [[nodiscard]] std::optional<DraftRefusal> apply(const TimeRules& rules, store::TimeEntry& entry) const;

private:
    void followStart();

    store::TimeEntry entry_;
    platform::SystemTime start_;
    platform::SystemTime end_;
    std::optional<std::u16string> typedBreak_;
    std::optional<DraftRefusal> breakRefusal_;
};

} // namespace hourwright::billing
