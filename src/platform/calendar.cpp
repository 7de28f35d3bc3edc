#include "platform/calendar.h"

#include <array>
#include <cmath>

namespace hourwright::platform {

namespace {

constexpr bool isLeapYear(unsigned year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

bool addTicks(SystemTime& time, std::int64_t n, std::uint64_t unit) {
    if (n == 0)
        return true;
    const std::optional<FileTime> from = toFileTime(time);
    const std::uint64_t count = n < 0 ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n);
    if (!from || count > lastFileTime.ticks / unit)
        return false;
    const std::uint64_t room = n < 0 ? from->ticks : lastFileTime.ticks - from->ticks;
    if (count * unit > room)
        return false;
    time = *toSystemTime(FileTime{n < 0 ? from->ticks - count * unit : from->ticks + count * unit});
    return true;
}

struct YearAndMonth {
    std::int64_t year;
    std::int64_t month;
};

// Carries one year at most, whatever n is.
YearAndMonth monthsLater(YearAndMonth from, int n) {
    from.month += n;
    if (n < 1 && from.month < 1)
        return {from.year - 1, from.month + 12};
    if (n >= 1 && from.month > 12)
        return {from.year + 1, from.month % 12};
    return from;
}

bool isSupported(YearAndMonth value) {
    return value.year >= 1601 && value.year <= 30827 && value.month >= 1 && value.month <= 12;
}

} // namespace

std::uint16_t weekday(std::uint16_t year, std::uint16_t month, std::uint16_t day) {
    // January and February count as months 13 and 14 of the year before.
    const double m = month < 3 ? month + 12 : month;
    const double y = month < 3 ? year - 1 : year;
    const double h = day + 2 * m + std::floor(0.6 * (m + 1)) + y + std::floor(0.25 * y) - std::floor(0.01 * y) +
                     std::floor(0.0025 * y) + 2;
    constexpr std::array<std::uint16_t, 7> days{6, 0, 1, 2, 3, 4, 5};
    // Sixteen-bit fields keep h below a few hundred thousand.
    return days[static_cast<std::size_t>(std::abs(static_cast<int>(h))) % days.size()];
}

std::uint16_t daysInMonth(std::uint16_t year, std::uint16_t month) {
    constexpr std::array<std::uint16_t, 12> lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && isLeapYear(year) ? 29 : lengths[month - 1U];
}

void clearTime(SystemTime& time) {
    time.hour = time.minute = time.second = time.milliseconds = 0;
}

bool addDays(SystemTime& time, std::int64_t n) {
    return addTicks(time, n, ticksPerDay);
}

bool addMinutes(SystemTime& time, std::int64_t n) {
    return addTicks(time, n, ticksPerMinute);
}

bool addSeconds(SystemTime& time, std::int64_t n) {
    return addTicks(time, n, ticksPerSecond);
}

bool addMonths(SystemTime& time, int n) {
    const YearAndMonth moved = monthsLater({time.year, time.month}, n);
    if (!isSupported(moved))
        return false;
    time.year = static_cast<std::uint16_t>(moved.year);
    time.month = static_cast<std::uint16_t>(moved.month);
    setDay(time, 1);
    return true;
}

void setDay(SystemTime& time, std::uint16_t day) {
    if (day < 1 || day > 31)
        return;
    time.day = day;
    time.dayOfWeek = weekday(time.year, time.month, day);
}

int weekStartOffset(const SystemTime& date, WeekStart weekStart) {
    const int w = weekday(date.year, date.month, date.day);
    if (weekStart == WeekStart::sunday)
        return -w;
    return w == 0 ? -6 : 1 - w;
}

} // namespace hourwright::platform
