#include "app/calendar/grid_stops.h"

#include <algorithm>

namespace hourwright::app {

std::vector<GridStop> stopsOf(const CalendarDay& day) {
    std::vector<GridStop> stops;
    for (const std::size_t entry : day.untimed)
        stops.push_back({.entry = entry, .span = {-1, -1}});
    const auto firstTimed = static_cast<std::ptrdiff_t>(stops.size());
    for (const TimeBlock& block : day.blocks)
        stops.push_back({.entry = block.entry, .span = block.span});
    for (int start = 0; start < minutesPerDay; start += slotMinutes) {
        const bool taken = std::any_of(day.blocks.begin(), day.blocks.end(), [&](const TimeBlock& block) {
            return block.span.start < start + slotMinutes && start < block.span.end;
        });
        if (!taken)
            stops.push_back({.entry = std::nullopt, .span = {start, start + slotMinutes}});
    }
    std::stable_sort(stops.begin() + firstTimed, stops.end(),
                     [](const GridStop& a, const GridStop& b) { return a.span.start < b.span.start; });
    return stops;
}

MinuteSpan slotAt(int minute) {
    const int start = std::clamp(minute, 0, minutesPerDay - slotMinutes) / slotMinutes * slotMinutes;
    return {start, start + slotMinutes};
}

std::size_t stopAt(const std::vector<GridStop>& stops, int minute) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < stops.size() && stops[i].span.start <= minute; ++i)
        found = i;
    return found;
}

std::optional<std::size_t> stopOf(const std::vector<GridStop>& stops, std::size_t entry) {
    for (std::size_t i = 0; i < stops.size(); ++i)
        if (stops[i].entry == entry)
            return i;
    return std::nullopt;
}

} // namespace hourwright::app
