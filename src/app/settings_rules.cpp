#include "app/settings_rules.h"

namespace hourwright::app {

billing::TimeRules timeRules(const AppSettings& settings) {
    return {.preciseMinutes = settings.styleFlags.has(StyleFlag::preciseMinutes),
            .granularityOn = settings.styleFlags.has(StyleFlag::granularity),
            .granularityMinutes = settings.minTime};
}

billing::NewEntryDefaults newEntryDefaults(const AppSettings& settings) {
    return {.billable = settings.styleFlags.has(StyleFlag::billable), .currency = settings.defaultCurrency.text()};
}

platform::WeekStart weekStart(const AppSettings& settings) {
    return settings.styleFlags.has(StyleFlag::weekStartsMonday) ? platform::WeekStart::monday
                                                                : platform::WeekStart::sunday;
}

std::optional<Period> periodOf(const AppSettings& settings, PeriodKind kind, const platform::SystemTime& date) {
    if (kind == PeriodKind::custom)
        return Period::custom(settings.periodStart, settings.periodEnd);
    return Period::around(kind, date, weekStart(settings));
}

} // namespace hourwright::app
