#pragma once

#include "app/period.h"
#include "platform/locale.h"

#include <string>

namespace hourwright::app {

/// The caption of a period in the locale's short dates: "11/16/26", "Week Of 11/16/26", with the number of the week
/// when wanted, the month as the face names it ("November 2026"), "From 11/1/26 To 11/15/26".
[[nodiscard]] std::u16string periodTitle(const Period& period, const platform::Locale& locale, bool withWeekNumber,
                                         const std::u16string& monthName);

/// The week of the year that a date lies in, by ISO 8601: 1 to 53. Weeks that begin on Sunday take the number of the
/// Monday in them.
[[nodiscard]] int weekNumber(const platform::SystemTime& firstDayOfWeek, platform::WeekStart weekStart);

} // namespace hourwright::app
