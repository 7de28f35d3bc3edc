#include "app/demo/demo_calendar.h"

#include "app/demo/random.h"
#include "platform/calendar.h"

#include <algorithm>

namespace hourwright::app::demo {
namespace {

using platform::FileTime;
using platform::SystemTime;

constexpr std::uint64_t daysOfHistory = 20 * 365;
constexpr std::uint16_t sunday = 0;
constexpr std::uint16_t saturday = 6;

// About 4.5 entries a working day make one busy consultant; a calendar day in seven is a Saturday, one a Sunday.
std::uint64_t calendarDays(std::uint64_t entries) {
    return std::min(daysOfHistory, entries / 3 + 1);
}

// How busy a day is: 0 is a day off.
std::uint32_t weightOf(const SystemTime& day, Random& random) {
    const std::uint32_t weight = random.between(40, 120);
    const bool workedSaturday = random.chance(8);
    const bool holiday = (day.month == 8 && day.day <= 14) || (day.month == 12 && day.day >= 24);
    if (day.dayOfWeek == sunday || holiday)
        return 0;
    if (day.dayOfWeek == saturday)
        return workedSaturday ? weight / 4 : 0;
    return weight;
}

FileTime firstOfNextMonth(SystemTime day) {
    platform::clearTime(day);
    if (!platform::addMonths(day, 1))
        return platform::lastFileTime;
    return platform::toFileTime(day).value_or(platform::lastFileTime);
}

struct WeightedDay {
    DemoDay day;
    std::uint32_t weight;
};

std::vector<WeightedDay> weightedDays(FileTime last, std::uint64_t count, Random random) {
    count = std::min(count, last.ticks / platform::ticksPerDay + 1);
    std::vector<WeightedDay> days;
    for (std::uint64_t back = count; back-- > 0;) {
        const FileTime start{last.ticks - back * platform::ticksPerDay};
        const SystemTime fields = platform::toSystemTime(start).value_or(SystemTime{});
        if (const std::uint32_t weight = weightOf(fields, random))
            days.push_back({{start, firstOfNextMonth(fields), last, fields.dayOfWeek == saturday, 0}, weight});
    }
    // A short history may consist of days off.
    if (days.empty())
        days.push_back({{last, firstOfNextMonth(platform::toSystemTime(last).value_or(SystemTime{})), last}, 1});
    return days;
}

} // namespace

std::optional<std::vector<DemoDay>> makeDemoCalendar(std::uint64_t entries, std::uint64_t seed, SystemTime lastDay) {
    platform::clearTime(lastDay);
    const auto last = platform::toFileTime(lastDay);
    if (!last)
        return std::nullopt;
    const auto weighted = weightedDays(*last, calendarDays(entries), Random(seed + 1));
    std::uint64_t total = 0;
    for (const auto& day : weighted)
        total += day.weight;
    // Every day gets what is due up to its end and not yet given, so that the sum is exact.
    std::vector<DemoDay> days;
    std::uint64_t passed = 0;
    std::uint64_t given = 0;
    for (const auto& [day, weight] : weighted) {
        passed += weight;
        const std::uint64_t due = entries * passed / total;
        if (due == given)
            continue;
        days.push_back(day);
        days.back().entries = static_cast<std::uint32_t>(due - given);
        given = due;
    }
    return days;
}

} // namespace hourwright::app::demo
