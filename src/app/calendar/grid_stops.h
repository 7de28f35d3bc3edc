#pragma once

#include "app/calendar/calendar_days.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace hourwright::app {

/// Length of the slots that the keyboard steps through.
inline constexpr int slotMinutes = 30;

/// A place where the keyboard's cursor can stand in a day: an entry, or a slot in which nothing begins or goes on.
struct GridStop {
    std::optional<std::size_t> entry;
    MinuteSpan span; ///< of an entry without a start time: before midnight

    friend bool operator==(const GridStop&, const GridStop&) = default;
};

/// The stops of a day in the order of going down: entries without a start, then blocks and free slots by time.
[[nodiscard]] std::vector<GridStop> stopsOf(const CalendarDay& day);

/// The slot of a day that a minute lies in; outside of the day the nearest one.
[[nodiscard]] MinuteSpan slotAt(int minute);

/// Index of the last stop that begins at or before a minute, 0 when none does.
[[nodiscard]] std::size_t stopAt(const std::vector<GridStop>& stops, int minute);

/// Index of the entry's stop.
[[nodiscard]] std::optional<std::size_t> stopOf(const std::vector<GridStop>& stops, std::size_t entry);

} // namespace hourwright::app
