#include "app/calendar/calendar_days.h"

#include "billing/duration.h"

#include <algorithm>

namespace hourwright::app {

namespace {

constexpr int startOfWork = 8 * 60;

int minuteOf(platform::FileTime instant) {
    return static_cast<int>(instant.ticks % platform::ticksPerDay / platform::ticksPerMinute);
}

TimeBlock blockOf(const store::TimeEntry& entry, std::size_t index) {
    const int start = minuteOf(entry.date);
    const int length = std::max(0, billing::minutesOfDuration(entry)) + std::max(0, billing::minutesOfBreak(entry));
    return {.entry = index,
            .span = {start, std::min(start + length, minutesPerDay)},
            .pastMidnight = start + length > minutesPerDay,
            .uncutEnd = start + length,
            .lane = {}};
}

void layOutLanes(CalendarDay& day) {
    std::vector<MinuteSpan> spans;
    for (const TimeBlock& block : day.blocks)
        spans.push_back(block.drawn());
    const auto lanes = sideBySide(spans);
    for (std::size_t i = 0; i < lanes.size(); ++i)
        day.blocks[i].lane = lanes[i];
}

} // namespace

MinuteSpan TimeBlock::drawn() const {
    const int start = std::min(span.start, minutesPerDay - shortestBlock);
    return {start, std::max(span.end, start + shortestBlock)};
}

std::vector<std::size_t> CalendarDay::entries() const {
    std::vector<std::size_t> all = untimed;
    for (const TimeBlock& block : blocks)
        all.push_back(block.entry);
    return all;
}

bool CalendarDays::load(store::RecordStore& records, const Period& period, platform::WeekStart weekStart,
                        const EntryMatcher& filter, const billing::TimeRules& rules) {
    entries_.clear();
    totals_ = {};
    layOutDays(period, weekStart);
    store::DateWalk walk(records, period.dateRange());
    store::TimeEntry entry;
    store::ReadResult result = store::ReadResult::ok;
    while ((result = walk.next(entry)) == store::ReadResult::ok)
        if (filter.matches(entry))
            add(entry, rules);
    for (CalendarDay& day : days_)
        layOutLanes(day);
    return result == store::ReadResult::noMore;
}

void CalendarDays::layOutDays(const Period& period, platform::WeekStart weekStart) {
    days_.clear();
    auto date = platform::toSystemTime(period.start()).value_or(platform::SystemTime{});
    const auto month = date.month;
    if (period.kind() == PeriodKind::month)
        platform::addDays(date, platform::weekStartOffset(date, weekStart));
    first_ = platform::toFileTime(date).value_or(period.start());
    const auto wholeDays = [&](platform::FileTime end) {
        return static_cast<std::size_t>((end.ticks - first_.ticks) / platform::ticksPerDay + 1);
    };
    std::size_t count = wholeDays(period.end());
    if (period.kind() == PeriodKind::month)
        count = (count + 6) / 7 * 7;
    for (std::size_t i = 0; i < count; ++i, platform::addDays(date, 1)) {
        const bool inPeriod = period.kind() != PeriodKind::month || date.month == month;
        days_.push_back({.date = date, .inPeriod = inPeriod, .untimed = {}, .blocks = {}, .totals = {}});
    }
}

void CalendarDays::add(store::TimeEntry entry, const billing::TimeRules& rules) {
    const auto day = dayOf(entry.date);
    if (!day)
        return;
    const std::size_t index = entries_.size();
    CalendarDay& place = days_[*day];
    if (store::hasStart(entry))
        place.blocks.push_back(blockOf(entry, index));
    else
        place.untimed.push_back(index);
    place.totals.add(entry, rules);
    totals_.add(entry, rules);
    entries_.push_back(std::move(entry));
}

std::optional<std::size_t> CalendarDays::find(store::RecordId id) const {
    const auto found =
        std::find_if(entries_.begin(), entries_.end(), [&](const auto& entry) { return entry.id == id; });
    return found == entries_.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - entries_.begin()));
}

std::optional<std::size_t> CalendarDays::dayOf(platform::FileTime date) const {
    if (date < first_)
        return std::nullopt;
    const auto day = static_cast<std::size_t>((date.ticks - first_.ticks) / platform::ticksPerDay);
    return day < days_.size() ? std::optional(day) : std::nullopt;
}

int firstMinuteInView(const std::vector<CalendarDay>& days, int visibleMinutes) {
    int first = minutesPerDay;
    for (const CalendarDay& day : days)
        if (!day.blocks.empty())
            first = std::min(first, day.blocks.front().span.start);
    if (first == minutesPerDay)
        return startOfWork;
    const bool seen = first >= startOfWork && first + shortestBlock <= startOfWork + visibleMinutes;
    return seen ? startOfWork : std::max(0, first - shortestBlock);
}

} // namespace hourwright::app
