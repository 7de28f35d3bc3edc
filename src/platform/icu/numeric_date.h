#pragma once

#include "platform/file_time.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform {

/// A pattern of numbers for a date, as most locales have it. Carried out here it takes a hundredth of the time that the
/// library takes for any pattern.
class NumericDate {
public:
    /// The pattern in the library's notation; nothing when it has more than days, months and years as numbers.
    [[nodiscard]] static std::optional<NumericDate> parse(std::u16string_view pattern);

    /// The text of a valid date.
    [[nodiscard]] std::u16string text(const SystemTime& date) const;

private:
    /// A number of the date, followed by what stands between it and the next.
    struct Part {
        char16_t field = 0; ///< d, M or y; 0: none, at the beginning
        int digits = 0;     ///< at least; of a year, 2 are its last two
        std::u16string then;
    };

    std::vector<Part> parts_;
};

} // namespace hourwright::platform
