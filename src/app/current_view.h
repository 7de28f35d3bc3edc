#pragma once

#include "app/app_settings.h"
#include "app/display_settings.h"
#include "app/period.h"
#include "app/view_state.h"
#include "platform/clock.h"

namespace hourwright::app {

/// What the main window shows: time entries or expenses, and of which period. Kind and layout are choices of the
/// settings, in which it keeps them (the caller saves); the date is shared by both kinds of records. It borrows
/// settings and clock.
class CurrentView {
public:
    /// Begins with today in the stored kind of period.
    CurrentView(AppSettings& settings, DisplaySettings& display, const platform::Clock& clock);

    [[nodiscard]] RecordKind records() const { return records_; }
    [[nodiscard]] const Period& period() const { return period_; }
    [[nodiscard]] PeriodKind kind() const { return period_.kind(); }
    [[nodiscard]] ListStyle listStyle() const;
    /// Calendars show time entries of a day, a week or a month; all else is a list.
    [[nodiscard]] Presentation presentation() const;
    [[nodiscard]] std::uint16_t arrangedBy() const;

    void showRecords(RecordKind records);
    /// Goes over to another kind of period around the current date. False, and nothing changed, for a custom period
    /// whose days have not been chosen.
    bool setKind(PeriodKind kind);
    void setListStyle(ListStyle style);
    void setCalendar(bool on);
    void arrangeBy(std::uint16_t choice);

    /// As `Period`'s.
    bool setDate(const platform::SystemTime& date) { return period_.setDate(date); }
    bool goToToday() { return period_.goToToday(clock_); }
    bool previous() { return period_.previous(); }
    bool next() { return period_.next(); }

    /// To be called when settings were changed: the week start and the custom period may be others.
    void settingsChanged();

private:
    [[nodiscard]] std::uint32_t& storedKind();
    void place(PeriodKind kind, const platform::SystemTime& date);

    AppSettings& settings_;
    DisplaySettings& display_;
    const platform::Clock& clock_;
    RecordKind records_ = RecordKind::entries;
    Period period_;
    platform::SystemTime lastDate_; ///< the date to return to from a custom period
};

} // namespace hourwright::app
