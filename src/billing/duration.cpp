#include "billing/duration.h"

#include "billing/precise_minutes.h"
#include "billing/stored_number.h"
#include "platform/calendar.h"
#include "platform/number_text.h"

#include <cmath>

namespace hourwright::billing {
namespace {

constexpr double hundredthsPerHour = 100.0;

double raisedToGranularity(double thousandths, std::uint16_t minutes) {
    const double granularity = minutes / 60.0;
    const double steps = thousandths / 1000.0 / granularity;
    if (steps - std::floor(steps) > 0.0)
        return granularity * std::ceil(steps) * 1000.0;
    return thousandths;
}

int minutesOf(std::int32_t stored) {
    const double hours = stored / hundredthsPerHour;
    const double whole = std::floor(hours);
    if (const auto minutes = preciseMinutes(hours - whole))
        return static_cast<int>(whole * 60 + *minutes);
    return static_cast<int>(hours * 60.0);
}

// Minutes that are no whole hundredths are nudged over the next hundredth, so that cutting off gives 17, 34, 67 and 84.
double nudged(double hours) {
    struct Nudge {
        double from, below, by;
    };
    constexpr Nudge nudges[] = {
        {0.1666666, 0.17, 0.004}, {0.3333333, 0.34, 0.007}, {0.6666666, 0.67, 0.004}, {0.8333333, 0.84, 0.007}};
    const double fraction = hours - std::floor(hours);
    for (const auto& nudge : nudges)
        if (fraction >= nudge.from && fraction < nudge.below)
            return hours + nudge.by;
    return hours;
}

void clearSeconds(platform::SystemTime& time) {
    time.second = 0;
    time.milliseconds = 0;
}

bool onSameDay(const platform::SystemTime& a, const platform::SystemTime& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

// Negative when the end is before the start.
std::optional<std::int64_t> minutesBetween(platform::SystemTime start, platform::SystemTime end) {
    clearSeconds(start);
    clearSeconds(end);
    const auto from = platform::toFileTime(start);
    const auto to = platform::toFileTime(end);
    if (!from || !to)
        return std::nullopt;
    const auto minutes = [](platform::FileTime t) {
        return static_cast<std::int64_t>(t.ticks / platform::ticksPerMinute);
    };
    return minutes(*to) - minutes(*from);
}

} // namespace

double hoursOf(const store::TimeEntry& entry) {
    return entry.duration / hundredthsPerHour;
}

double breakHoursOf(const store::TimeEntry& entry) {
    return entry.breakTime / hundredthsPerHour;
}

std::optional<std::int32_t> durationFromHours(double hours, const TimeRules& rules) {
    double thousandths = hours * 1000.0;
    if (rules.granularityOn && rules.granularityMinutes != 0)
        thousandths = raisedToGranularity(thousandths, rules.granularityMinutes);
    return storedFromThousandths(thousandths, maxStoredHours);
}

std::optional<std::int32_t> breakFromHours(double hours) {
    return storedFromThousandths(hours * 1000.0, maxStoredHours);
}

bool setDurationFromText(store::TimeEntry& entry, std::u16string_view text, const TimeRules& rules) {
    const auto stored = durationFromHours(platform::parseDecimal(text), rules);
    entry.duration = stored.value_or(entry.duration);
    return stored.has_value();
}

bool setBreakFromText(store::TimeEntry& entry, std::u16string_view text) {
    const auto stored = breakFromHours(platform::parseDecimal(text));
    entry.breakTime = stored.value_or(entry.breakTime);
    return stored.has_value();
}

std::optional<std::int32_t> durationFromStartEnd(const platform::SystemTime& start, platform::SystemTime end,
                                                 double breakHours, const TimeRules& rules) {
    if (end.hour < start.hour && onSameDay(start, end) && !platform::addDays(end, 1))
        return std::nullopt;
    const auto minutes = minutesBetween(start, end);
    if (!minutes)
        return std::nullopt;
    double hours = static_cast<double>(*minutes) / 60.0;
    if (rules.preciseMinutes)
        hours = nudged(hours);
    return durationFromHours(hours - breakHours, rules);
}

int minutesOfDuration(const store::TimeEntry& entry) {
    return minutesOf(entry.duration);
}

int minutesOfBreak(const store::TimeEntry& entry) {
    return minutesOf(entry.breakTime);
}

platform::SystemTime endTime(const platform::SystemTime& start, const store::TimeEntry& entry) {
    platform::SystemTime end = start;
    for (const int minutes : {minutesOfDuration(entry), minutesOfBreak(entry)})
        if (minutes > 0)
            platform::addMinutes(end, minutes);
    return end;
}

std::u16string formatHours(const store::TimeEntry& entry) {
    std::u16string text;
    platform::appendHundredths(text, entry.duration);
    return text;
}

} // namespace hourwright::billing
