#pragma once

#include "platform/file_time.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace hourwright::app::demo {

/// A day on which there is work.
struct DemoDay {
    platform::FileTime start;    ///< its midnight
    platform::FileTime billedOn; ///< first day of the month after it
    platform::FileTime last;     ///< the last day of all
    bool weekend = false;
    std::uint32_t entries = 0; ///< at least 1
};

/// Spreads entries over the working days (and a few Saturdays) up to the last day, in order. Nothing when that is no
/// date.
[[nodiscard]] std::optional<std::vector<DemoDay>> makeDemoCalendar(std::uint64_t entries, std::uint64_t seed,
                                                                   platform::SystemTime lastDay);

} // namespace hourwright::app::demo
