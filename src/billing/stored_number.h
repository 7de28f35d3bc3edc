#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <optional>

namespace hourwright::billing {

/// The largest durations, breaks, rates and expense amounts that their fields hold, in hundredths.
inline constexpr std::int32_t maxStoredHours = 65'535;
inline constexpr std::int32_t maxStoredRate = 2'147'483'647;
inline constexpr std::uint32_t maxStoredAmount = 4'294'967'295;

/// Thousandths as stored hundredths, the last digit cut off. Nothing for a result below 0 or above `largest`, and for
/// what is no number.
template<std::integral Stored>
[[nodiscard]] std::optional<Stored> storedFromThousandths(double thousandths, Stored largest) {
    const double stored = std::trunc(thousandths / 10.0);
    if (!(stored >= 0.0 && stored <= static_cast<double>(largest)))
        return std::nullopt;
    return static_cast<Stored>(stored);
}

} // namespace hourwright::billing
