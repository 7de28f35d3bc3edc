#pragma once

#include "platform/file_time.h"

#include <cstdint>

namespace hourwright::platform {

/// Which day a week begins with.
enum class WeekStart : std::uint8_t { sunday = 0, monday = 1 };

/// Day of the week of a Gregorian date, 0 (Sunday) to 6 (Saturday).
[[nodiscard]] std::uint16_t weekday(std::uint16_t year, std::uint16_t month, std::uint16_t day);

/// Number of days in a month of the Gregorian calendar, 0 when there is no such month.
[[nodiscard]] std::uint16_t daysInMonth(std::uint16_t year, std::uint16_t month);

/// Sets hour, minute, second and milliseconds to 0.
void clearTime(SystemTime& time);

/// Moves the instant by n days, minutes or seconds (n may be negative). The day of week follows. 0, and a move that
/// would leave the years 1601 to 30827, changes nothing; the latter returns false.
bool addDays(SystemTime& time, std::int64_t n);
bool addMinutes(SystemTime& time, std::int64_t n);
bool addSeconds(SystemTime& time, std::int64_t n);

/// Moves by n calendar months (n from -12 to 12) and leaves the day at 1; the time of day stays. One year at most is
/// carried, so twelve months on from a December is no date. False, and nothing changed, when there is no such date or
/// it would leave the years 1601 to 30827.
bool addMonths(SystemTime& time, int n);

/// Sets the day of the month and recomputes the day of week; a day outside 1 to 31 is ignored.
void setDay(SystemTime& time, std::uint16_t day);

/// Days (0 or negative) from a date back to the first day of its week.
[[nodiscard]] int weekStartOffset(const SystemTime& date, WeekStart weekStart);

} // namespace hourwright::platform
