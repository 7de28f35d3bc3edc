#pragma once

#include "platform/file_time.h"
#include "platform/locale.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

/// Dates and times of day as an export writes them: in a locale's form, of which 31 characters count. Forms once made
/// are remembered, within fixed bounds, since an export meets the same days and minutes again and again.
class DateCells {
public:
    /// Borrows the locale.
    explicit DateCells(const platform::Locale& locale);

    /// The short date; empty for an instant beyond the calendar. Valid until the next call.
    [[nodiscard]] std::u16string_view date(platform::FileTime instant);
    /// The time of day without seconds. Valid until the next call.
    [[nodiscard]] std::u16string_view time(const platform::SystemTime& time);

private:
    struct Day {
        std::uint64_t number = UINT64_MAX;
        std::u16string text;
    };

    const platform::Locale& locale_;
    std::vector<Day> days_;
    std::vector<std::optional<std::u16string>> minutes_; // of the day
};

} // namespace hourwright::exchange
