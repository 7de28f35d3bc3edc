#include "app/current_view.h"

#include "app/settings_rules.h"

namespace hourwright::app {

namespace {

// A valid date's day is always a period; the calendar's first day stands in for a clock that has none.
Period dayOf(const platform::SystemTime& date) {
    const auto day = Period::around(PeriodKind::day, date, platform::WeekStart::sunday);
    return day ? *day
               : *Period::around(PeriodKind::day, {.year = 2000, .month = 1, .day = 1}, platform::WeekStart::sunday);
}

} // namespace

CurrentView::CurrentView(AppSettings& settings, DisplaySettings& display, const platform::Clock& clock)
    : settings_(settings), display_(display), clock_(clock), period_(dayOf(clock.localTime())),
      lastDate_(period_.currentDate()) {
    place(periodKind(settings_.view), lastDate_);
}

std::uint32_t& CurrentView::storedKind() {
    return records_ == RecordKind::entries ? settings_.view : settings_.expView;
}

// A custom period that was not chosen yet, and a period beyond the calendar, give way to the day.
void CurrentView::place(PeriodKind kind, const platform::SystemTime& date) {
    const auto period = periodOf(settings_, kind, date);
    period_ = period ? *period : dayOf(date);
}

ListStyle CurrentView::listStyle() const {
    return app::listStyle(records_ == RecordKind::entries ? settings_.listStyle : settings_.expListStyle);
}

Presentation CurrentView::presentation() const {
    const bool calendar = display_.calendar && records_ == RecordKind::entries && kind() != PeriodKind::custom;
    return calendar ? Presentation::calendar : Presentation::list;
}

std::uint16_t CurrentView::arrangedBy() const {
    return records_ == RecordKind::entries ? settings_.sort : settings_.expSort;
}

void CurrentView::showRecords(RecordKind records) {
    if (kind() != PeriodKind::custom)
        lastDate_ = period_.currentDate();
    records_ = records;
    place(periodKind(storedKind()), lastDate_);
}

bool CurrentView::setKind(PeriodKind kind) {
    if (period_.kind() != PeriodKind::custom)
        lastDate_ = period_.currentDate();
    const auto period = periodOf(settings_, kind, lastDate_);
    if (!period)
        return false;
    period_ = *period;
    storedKind() = static_cast<std::uint32_t>(kind);
    return true;
}

void CurrentView::setListStyle(ListStyle style) {
    (records_ == RecordKind::entries ? settings_.listStyle : settings_.expListStyle) =
        static_cast<std::uint32_t>(style);
    if (records_ == RecordKind::entries)
        display_.calendar = false;
}

void CurrentView::setCalendar(bool on) {
    display_.calendar = on;
}

void CurrentView::arrangeBy(std::uint16_t choice) {
    (records_ == RecordKind::entries ? settings_.sort : settings_.expSort) = choice;
}

// A week is kept by its middle, so that it stays nearly the same one when it begins on another day.
void CurrentView::settingsChanged() {
    auto date = kind() == PeriodKind::custom ? lastDate_ : period_.currentDate();
    if (kind() == PeriodKind::week)
        platform::addDays(date, 3);
    place(periodKind(storedKind()), date);
}

} // namespace hourwright::app
