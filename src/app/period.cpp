#include "app/period.h"

#include <algorithm>

namespace hourwright::app {

using platform::FileTime;
using platform::SystemTime;

namespace {

constexpr int daysInWeek = 7;

/// The date at 00:00 with its true day of week; nothing for a date that does not exist.
std::optional<SystemTime> dayOf(SystemTime date) {
    platform::clearTime(date);
    const auto instant = platform::toFileTime(date);
    return instant ? platform::toSystemTime(*instant) : std::nullopt;
}

/// Moves by one month; the day stays where the new month has it, else becomes the month's last.
bool addMonthKeepingDay(SystemTime& date, int direction) {
    const std::uint16_t day = date.day;
    if (!platform::addMonths(date, direction))
        return false;
    platform::setDay(date, std::min(day, platform::daysInMonth(date.year, date.month)));
    return true;
}

FileTime instantOf(const SystemTime& validDate) {
    return platform::toFileTime(validDate).value_or(FileTime{});
}

} // namespace

std::optional<Period> Period::around(PeriodKind kind, const SystemTime& date, platform::WeekStart weekStart) {
    Period period(kind, weekStart);
    return period.setDate(date) ? std::optional(period) : std::nullopt;
}

std::optional<Period> Period::custom(const SystemTime& firstDay, const SystemTime& lastDay) {
    const auto first = dayOf(firstDay);
    const auto last = dayOf(lastDay);
    if (!first || !last)
        return std::nullopt;
    Period period(PeriodKind::custom, platform::WeekStart::sunday);
    period.current_ = *first;
    period.lastDay_ = *last;
    return period;
}

bool Period::setDate(const SystemTime& date) {
    if (kind_ == PeriodKind::custom)
        return false;
    auto day = dayOf(date);
    if (!day)
        return false;
    if (kind_ == PeriodKind::week && !platform::addDays(*day, platform::weekStartOffset(*day, weekStart_)))
        return false;
    return place(*day);
}

bool Period::move(int direction) {
    SystemTime moved = current_;
    switch (kind_) {
    case PeriodKind::day: return platform::addDays(moved, direction) && place(moved);
    case PeriodKind::week: return platform::addDays(moved, direction * daysInWeek) && place(moved);
    case PeriodKind::month: return addMonthKeepingDay(moved, direction) && place(moved);
    case PeriodKind::custom: break;
    }
    return false;
}

/// Takes the current date unless the period around it would end beyond the calendar.
bool Period::place(const SystemTime& current) {
    Period moved = *this;
    moved.current_ = current;
    if (moved.end() > platform::lastFileTime)
        return false;
    *this = moved;
    return true;
}

FileTime Period::start() const {
    SystemTime first = current_;
    if (kind_ == PeriodKind::month)
        platform::setDay(first, 1);
    return instantOf(first);
}

FileTime Period::end() const {
    const auto afterDays = [](FileTime from, std::uint64_t days) { return from.ticks + days * platform::ticksPerDay; };
    switch (kind_) {
    case PeriodKind::day: return {afterDays(start(), 1) - platform::ticksPerSecond};
    case PeriodKind::week: return {afterDays(start(), daysInWeek) - platform::ticksPerSecond};
    case PeriodKind::month:
        return {afterDays(start(), platform::daysInMonth(current_.year, current_.month)) - platform::ticksPerMinute};
    case PeriodKind::custom: break;
    }
    return {afterDays(instantOf(lastDay_), 1) - platform::ticksPerSecond};
}

store::DateRange Period::dateRange() const {
    store::DateRange range{.after = std::nullopt, .last = end()};
    if (const FileTime first = start(); first.ticks > 0)
        range.after = FileTime{first.ticks - 1};
    return range;
}

} // namespace hourwright::app
