#pragma once

#include <cstdint>

namespace hourwright::app {

/// Which stretch of the calendar a view shows. The numbers are the stored ones.
enum class PeriodKind : std::uint8_t { day = 1, week = 2, month = 3, custom = 4 };

/// The kind of a stored number. A number that is none reads as a week, so that a damaged setting still shows something.
[[nodiscard]] constexpr PeriodKind periodKind(std::uint32_t stored) {
    return stored >= 1 && stored <= 4 ? static_cast<PeriodKind>(stored) : PeriodKind::week;
}

} // namespace hourwright::app
