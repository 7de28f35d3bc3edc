#pragma once

#include "app/app_settings.h"
#include "billing/time_rules.h"

#include <array>
#include <string>

namespace hourwright::exchange {

/// What the user's settings decide about CSV files.
struct CsvOptions {
    std::array<std::u16string, 3> captions;        ///< of the time entry's custom fields
    std::array<std::u16string, 2> expenseCaptions; ///< of the expense's custom fields
    std::u16string lineBreak = u" ";               ///< stands for a line break in a time entry's note
    billing::TimeRules rules;                      ///< by which amounts are calculated
};

[[nodiscard]] CsvOptions csvOptions(const app::AppSettings& settings);

} // namespace hourwright::exchange
