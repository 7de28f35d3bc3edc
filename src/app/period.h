#pragma once

#include "app/period_kind.h"
#include "platform/calendar.h"
#include "platform/clock.h"
#include "platform/file_time.h"
#include "store/date_walk.h"

#include <optional>

namespace hourwright::app {

/// The stretch of the calendar that a view, a list or an export covers: a kind and the current date, which lies in it.
/// For a day, a week and a custom period the current date is the first day. For a month it keeps the day that was
/// chosen, so that moving from month to month stays near it, while the period always begins on the first. A period is
/// always a valid one: all of it lies in the years 1601 to 30827.
class Period {
public:
    /// The day, week or month around a date, whose time and day of week do not count. Nothing for an invalid date, a
    /// period beyond the calendar or the custom kind.
    [[nodiscard]] static std::optional<Period> around(PeriodKind kind, const platform::SystemTime& date,
                                                      platform::WeekStart weekStart);

    /// The custom period from the first to the last day, both included; empty when the last lies before the first.
    /// Nothing when either date is invalid, for example not chosen yet.
    [[nodiscard]] static std::optional<Period> custom(const platform::SystemTime& firstDay,
                                                      const platform::SystemTime& lastDay);

    [[nodiscard]] PeriodKind kind() const { return kind_; }
    /// The current date at 00:00.
    [[nodiscard]] const platform::SystemTime& currentDate() const { return current_; }

    /// Moves to the period around a date, to today's, to the one before or after. False, and nothing changed, for an
    /// invalid date, beyond the calendar, and for a custom period, which stays where it was set. Previous and next
    /// month keep the day of the month as far as the month is long enough: 31 March, 29 February, 29 January.
    bool setDate(const platform::SystemTime& date);
    bool goToToday(const platform::Clock& clock) { return setDate(clock.localTime()); }
    bool previous() { return move(-1); }
    bool next() { return move(1); }

    /// First instant: the first day at 00:00.
    [[nodiscard]] platform::FileTime start() const;
    /// Last instant: one second before the next day or week begins, but one minute before the next month does.
    [[nodiscard]] platform::FileTime end() const;

    /// The records of this period: from the start, which counts, to the end.
    [[nodiscard]] store::DateRange dateRange() const;

    friend bool operator==(const Period&, const Period&) = default;

private:
    Period(PeriodKind kind, platform::WeekStart weekStart) : kind_(kind), weekStart_(weekStart) {}

    bool move(int direction);
    bool place(const platform::SystemTime& current);

    PeriodKind kind_;
    platform::WeekStart weekStart_;
    platform::SystemTime current_{};
    platform::SystemTime lastDay_{}; ///< of a custom period only
};

} // namespace hourwright::app
