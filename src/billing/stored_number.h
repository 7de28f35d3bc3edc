#pragma once

#include <cstdint>
#include <optional>

namespace hourwright::billing {

/// The largest durations, breaks and rates that their fields hold, in hundredths.
inline constexpr std::int32_t maxStoredHours = 65'535;
inline constexpr std::int32_t maxStoredRate = 2'147'483'647;

/// Thousandths as stored hundredths, the last digit cut off. Nothing for a result below 0 or above `largest`, and for
/// what is no number.
[[nodiscard]] std::optional<std::int32_t> storedFromThousandths(double thousandths, std::int32_t largest);

} // namespace hourwright::billing
