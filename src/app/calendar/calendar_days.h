#pragma once

#include "app/calendar/lanes.h"
#include "app/entry_filter.h"
#include "app/period.h"
#include "app/view_totals.h"
#include "billing/time_rules.h"
#include "platform/calendar.h"
#include "store/record_store.h"
#include "store/time_entry.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace hourwright::app {

inline constexpr int minutesPerDay = 24 * 60;
/// A block is drawn at least this long, so that it can be read and taken hold of.
inline constexpr int shortestBlock = 15;

/// An entry with a start time in its day.
struct TimeBlock {
    std::size_t entry = 0;     ///< its index
    MinuteSpan span;           ///< from its start to its end, cut at midnight
    bool pastMidnight = false; ///< it was cut
    int uncutEnd = 0;          ///< its end in minutes from its own midnight
    Lane lane;

    /// The span that it is drawn in.
    [[nodiscard]] MinuteSpan drawn() const;
};

/// A day of the calendar with what is dated on it.
struct CalendarDay {
    platform::SystemTime date;
    bool inPeriod = true;             ///< else it only fills the grid of a month
    std::vector<std::size_t> untimed; ///< entries without a start time, by index
    std::vector<TimeBlock> blocks;    ///< by start
    ViewTotals totals;

    /// All its entries by index: those without a start time first.
    [[nodiscard]] std::vector<std::size_t> entries() const;
};

/// The time entries of a day, a week or a month and how a calendar lays them out.
class CalendarDays {
public:
    /// Reads the period's entries that the filter passes. False when reading failed; what was read until then is kept.
    bool load(store::RecordStore& records, const Period& period, platform::WeekStart weekStart,
              const EntryMatcher& filter, const billing::TimeRules& rules);

    [[nodiscard]] const std::vector<store::TimeEntry>& entries() const { return entries_; }
    /// The days from the first on; of a month whole weeks, so that it begins and ends with days of its neighbours.
    [[nodiscard]] const std::vector<CalendarDay>& days() const { return days_; }
    [[nodiscard]] const ViewTotals& totals() const { return totals_; }

    [[nodiscard]] std::optional<std::size_t> find(store::RecordId id) const;
    /// Index of the day that an entry or a date lies on.
    [[nodiscard]] std::optional<std::size_t> dayOf(platform::FileTime date) const;

private:
    void layOutDays(const Period& period, platform::WeekStart weekStart);
    void add(store::TimeEntry entry, const billing::TimeRules& rules);

    std::vector<store::TimeEntry> entries_;
    std::vector<CalendarDay> days_;
    platform::FileTime first_;
    ViewTotals totals_;
};

/// The minute of the day that a view of so many minutes best begins with: eight o'clock, or earlier or later when the
/// first block could not be seen from there.
[[nodiscard]] int firstMinuteInView(const std::vector<CalendarDay>& days, int visibleMinutes);

} // namespace hourwright::app
