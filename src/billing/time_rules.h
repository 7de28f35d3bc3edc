#pragma once

#include <cstdint>

namespace hourwright::billing {

/// The options that decide how hours become stored durations and amounts.
struct TimeRules {
    bool preciseMinutes = false;           ///< 10, 20, 40 and 50 minutes are calculated precisely
    bool granularityOn = false;            ///< durations are raised to a multiple of the granularity
    std::uint16_t granularityMinutes = 15; ///< 0 counts as no granularity

    friend bool operator==(const TimeRules&, const TimeRules&) = default;
};

} // namespace hourwright::billing
