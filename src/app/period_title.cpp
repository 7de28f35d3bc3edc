#include "app/period_title.h"

#include "platform/number_text.h"
#include "resources/filled.h"
#include "resources/texts/periods.h"

namespace hourwright::app {

namespace {

std::u16string dateOf(platform::FileTime instant, const platform::Locale& locale) {
    const auto date = platform::toSystemTime(instant);
    return date ? locale.shortDate(*date) : std::u16string();
}

std::u16string weekTitle(const Period& period, const platform::Locale& locale, bool withWeekNumber) {
    std::u16string title = std::u16string(resources::periods::weekOf.text) + dateOf(period.start(), locale);
    if (withWeekNumber) {
        const auto first = platform::toSystemTime(period.start()).value_or(platform::SystemTime{});
        std::u16string week;
        platform::appendInteger(
            week, weekNumber(first, first.dayOfWeek == 0 ? platform::WeekStart::sunday : platform::WeekStart::monday));
        title += resources::filled(resources::periods::weekNumber.text, {week});
    }
    return title;
}

} // namespace

int weekNumber(const platform::SystemTime& firstDayOfWeek, platform::WeekStart weekStart) {
    // The week's Thursday decides which year it belongs to.
    platform::SystemTime thursday = firstDayOfWeek;
    platform::clearTime(thursday);
    platform::addDays(thursday, weekStart == platform::WeekStart::monday ? 3 : 4);
    const auto firstOfYear = platform::toFileTime({.year = thursday.year, .month = 1, .day = 1});
    const auto day = platform::toFileTime(thursday);
    if (!firstOfYear || !day)
        return 0;
    return static_cast<int>((day->ticks - firstOfYear->ticks) / platform::ticksPerDay / 7) + 1;
}

std::u16string periodTitle(const Period& period, const platform::Locale& locale, bool withWeekNumber,
                           const std::u16string& monthName) {
    switch (period.kind()) {
    case PeriodKind::day: return dateOf(period.start(), locale);
    case PeriodKind::week: return weekTitle(period, locale, withWeekNumber);
    case PeriodKind::month: return monthName;
    case PeriodKind::custom:
        return resources::filled(resources::periods::fromTo.text,
                                 {dateOf(period.start(), locale), dateOf(period.end(), locale)});
    }
    return {};
}

} // namespace hourwright::app
