#pragma once

#include "app/app_settings.h"
#include "app/period.h"
#include "billing/new_entry.h"
#include "billing/time_rules.h"
#include "platform/calendar.h"

#include <optional>

namespace hourwright::app {

/// The options of the settings that billing's arithmetic takes. A granularity of 0 minutes, which only a damaged
/// setting has, goes along as it is; there it counts as none.
[[nodiscard]] billing::TimeRules timeRules(const AppSettings& settings);

/// Status and currency of new entries and expenses.
[[nodiscard]] billing::NewEntryDefaults newEntryDefaults(const AppSettings& settings);

[[nodiscard]] platform::WeekStart weekStart(const AppSettings& settings);

/// The period of a kind around a date; the custom kind takes its days from the settings instead. Nothing when the
/// custom days have not been chosen, or the period lies beyond the calendar.
[[nodiscard]] std::optional<Period> periodOf(const AppSettings& settings, PeriodKind kind,
                                             const platform::SystemTime& date);

} // namespace hourwright::app
