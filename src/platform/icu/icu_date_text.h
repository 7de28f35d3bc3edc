#pragma once

#include "platform/file_time.h"
#include "platform/icu/numeric_date.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <vector>

namespace hourwright::platform {

/// Dates and times of day as one locale writes them, in the Gregorian calendar and with western digits. Texts made
/// are kept, since rows of a list or an export repeat them.
class IcuDateText {
public:
    /// Loads the patterns, which takes about a millisecond the first time.
    explicit IcuDateText(const std::string& icuLocaleName);

    /// The short date; empty for no date of the years 1601 to 30827.
    [[nodiscard]] std::u16string shortDate(const SystemTime& date);
    /// The time of day without seconds; empty for no time of day.
    [[nodiscard]] std::u16string timeWithoutSeconds(const SystemTime& time);

private:
    struct DayText {
        std::uint64_t day;
        std::u16string text;
    };

    [[nodiscard]] std::u16string format(const icu::DateFormat& format, double millisecondsSince1970);

    std::unique_ptr<icu::Calendar> calendar_;
    std::unique_ptr<icu::DateFormat> date_;
    std::optional<NumericDate> numericDate_; // the same, when it is that simple
    std::unique_ptr<icu::DateFormat> time_;
    std::vector<DayText> days_;
    std::vector<std::u16string> minutes_;
};

} // namespace hourwright::platform
