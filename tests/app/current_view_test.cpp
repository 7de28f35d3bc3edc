#include "app/current_view.h"

#include "support/fake_clock.h"
#include "support/print_system_time.h"

#include <gtest/gtest.h>

namespace hourwright::app {

namespace {

class CurrentViewTest : public testing::Test {
protected:
    // The first day of the period shown.
    std::uint16_t firstDay() const { return platform::toSystemTime(view.period().start())->day; }

    test::FakeClock clock; // Monday, 16 November 2026
    AppSettings settings{SettingsDevice{}};
    DisplaySettings display;
    CurrentView view{settings, display, clock};
};

TEST_F(CurrentViewTest, BeginsWithTodayInTheStoredKind) {
    EXPECT_EQ(view.kind(), PeriodKind::week);
    EXPECT_EQ(firstDay(), 15);
}

TEST_F(CurrentViewTest, StaysInTheWeekWhenItBeginsOnAnotherDay) {
    settings.styleFlags.set(StyleFlag::weekStartsMonday);
    view.settingsChanged();
    EXPECT_EQ(firstDay(), 16);
    settings.styleFlags.set(StyleFlag::weekStartsMonday, false);
    view.settingsChanged();
    EXPECT_EQ(firstDay(), 15);
}

TEST_F(CurrentViewTest, KeepsTheDateBesideACustomPeriod) {
    EXPECT_FALSE(view.setKind(PeriodKind::custom)) << "its days have not been chosen";
    settings.periodStart = {.year = 2020, .month = 1, .day = 5};
    settings.periodEnd = {.year = 2020, .month = 2, .day = 5};
    EXPECT_TRUE(view.setKind(PeriodKind::custom));
    EXPECT_FALSE(view.next());
    EXPECT_EQ(settings.view, 4U);
    EXPECT_TRUE(view.setKind(PeriodKind::day));
    EXPECT_EQ(platform::toSystemTime(view.period().start())->year, 2026);
}

TEST_F(CurrentViewTest, KeepsKindAndStyleForEachKindOfRecords) {
    view.setKind(PeriodKind::day);
    view.setListStyle(ListStyle::tree);
    view.setCalendar(true);
    EXPECT_EQ(view.presentation(), Presentation::calendar);
    view.showRecords(RecordKind::expenses);
    EXPECT_EQ(view.kind(), PeriodKind::month);
    EXPECT_EQ(view.listStyle(), ListStyle::standard);
    EXPECT_EQ(view.presentation(), Presentation::list) << "only time entries have a calendar";
    view.showRecords(RecordKind::entries);
    EXPECT_EQ(view.kind(), PeriodKind::day);
    EXPECT_EQ(view.presentation(), Presentation::calendar);
}

} // namespace

} // namespace hourwright::app
