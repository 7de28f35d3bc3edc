#pragma once

#include "billing/time_rules.h"
#include "platform/file_time.h"
#include "store/time_entry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Hours of time entries. A stored duration or break counts hundredths of an hour; its field holds 0 to 655.35 hours,
/// and what it cannot hold is refused. Conversions cut off, they never round.
namespace hourwright::billing {

[[nodiscard]] double hoursOf(const store::TimeEntry& entry);
[[nodiscard]] double breakHoursOf(const store::TimeEntry& entry);

/// Hundredths to store for a duration in hours, raised to the granularity when that is on. Nothing when the field
/// cannot hold it.
[[nodiscard]] std::optional<std::int32_t> durationFromHours(double hours, const TimeRules& rules);

/// Hundredths to store for a break in hours, to which granularity never applies.
[[nodiscard]] std::optional<std::int32_t> breakFromHours(double hours);

/// Sets the duration from a typed text that has passed the numeric test. False, and nothing changed, when the field
/// cannot hold the number.
[[nodiscard]] bool setDurationFromText(store::TimeEntry& entry, std::u16string_view text, const TimeRules& rules);

/// The same for the break, without granularity.
[[nodiscard]] bool setBreakFromText(store::TimeEntry& entry, std::u16string_view text);

/// Hundredths to store for the work between two times less a break in hours. An end with an earlier hour on the same
/// day means the next day. Only whole minutes count: the seconds, which mark a start time as set, are ignored.
/// Nothing when a date is invalid, or when the result is negative or more than the field holds.
[[nodiscard]] std::optional<std::int32_t> durationFromStartEnd(const platform::SystemTime& start,
                                                               platform::SystemTime end, double breakHours,
                                                               const TimeRules& rules);

/// Whole minutes by which a duration or break moves a time on: 0.17, 0.33, 0.67 and 0.83 hours count as 10, 20, 40 and
/// 50 minutes, all else is cut off to the minute.
[[nodiscard]] int minutesOfDuration(const store::TimeEntry& entry);
[[nodiscard]] int minutesOfBreak(const store::TimeEntry& entry);

/// When work that began at `start` ended: the minutes of duration and break later.
[[nodiscard]] platform::SystemTime endTime(const platform::SystemTime& start, const store::TimeEntry& entry);

/// The duration with two decimals and no unit.
[[nodiscard]] std::u16string formatHours(const store::TimeEntry& entry);

} // namespace hourwright::billing
