#pragma once

#include "app/calendar/lanes.h"
#include "billing/move_entry.h"
#include "billing/time_rules.h"
#include "platform/file_time.h"

#include <cstdint>

namespace hourwright::app {

/// What dragging in a grid of days and hours does.
enum class DragKind : std::uint8_t { mark, move, startEdge, endEdge };

/// A place in the grid: a day by its column and a minute of that day, which may lie outside of it.
struct GridPoint {
    int day = 0;
    int minute = 0;

    friend bool operator==(const GridPoint&, const GridPoint&) = default;
};

/// A stretch of time on a day. The end may be after midnight.
struct DayTimes {
    int day = 0;
    MinuteSpan span;

    friend bool operator==(const DayTimes&, const DayTimes&) = default;
};

/// Minutes that dragging and moving by keyboard snaps to: five, or the granularity of durations when that is on.
[[nodiscard]] int snapStep(const billing::TimeRules& rules);

/// A stretch of time while it is dragged, in steps. A block that is moved keeps its length and its start stays on the
/// day; an edge stops one step before the other one.
class TimeDrag {
public:
    /// Takes hold at a place; `original` is the block's time, of a mark it does not count. `shortest` is the length
    /// that an edge leaves.
    TimeDrag(DragKind kind, const DayTimes& original, GridPoint grabbed, int dayCount, int step, int shortest = 0);

    void moveTo(GridPoint point);

    [[nodiscard]] DragKind kind() const { return kind_; }
    [[nodiscard]] const DayTimes& times() const { return times_; }
    /// False while letting go would change nothing.
    [[nodiscard]] bool changed() const { return kind_ == DragKind::mark || times_ != original_; }

private:
    void mark(GridPoint point);
    void move(GridPoint point);

    DragKind kind_;
    DayTimes original_;
    GridPoint grabbed_;
    int dayCount_;
    int step_;
    int shortest_;
    DayTimes times_;
};

/// The place of an entry with these times, the first day of the grid being `firstDay`. When it was only moved its
/// duration stays.
[[nodiscard]] billing::EntryPlace placeOf(DragKind kind, const DayTimes& times, const platform::SystemTime& firstDay);

} // namespace hourwright::app
