#include "app/calendar/calendar_days.h"

#include "app/calendar/entry_label.h"
#include "app/calendar/grid_geometry.h"
#include "app/calendar/grid_stops.h"
#include "platform/icu/icu_locale.h"
#include "support/store_fixture.h"

#include <map>

namespace hourwright::app {

namespace {

using platform::SystemTime;
using platform::WeekStart;

constexpr SystemTime at(std::uint16_t day, std::uint16_t hour = 0, std::uint16_t minute = 0) {
    return {.year = 2026, .month = 11, .day = day, .hour = hour, .minute = minute};
}

class CalendarDaysTest : public test::StoreFixture {
protected:
    void add(const SystemTime& start, std::int32_t duration, std::int32_t breakTime = 0) {
        store::TimeEntry entry;
        ASSERT_TRUE(store::setDateAndStart(entry, start));
        insert(entry, duration, breakTime);
    }
    void addUntimed(const SystemTime& day, std::int32_t duration) {
        store::TimeEntry entry;
        ASSERT_TRUE(store::setDateWithoutStart(entry, day));
        insert(entry, duration, 0);
    }
    CalendarDays load(PeriodKind kind, const SystemTime& date, WeekStart weekStart = WeekStart::monday,
                      const EntryFilter& filter = {}) {
        CalendarDays days;
        EXPECT_TRUE(days.load(stores().entries(), *Period::around(kind, date, weekStart), weekStart,
                              EntryMatcher(filter, *locale_), {}));
        return days;
    }

    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");

private:
    void insert(store::TimeEntry& entry, std::int32_t duration, std::int32_t breakTime) {
        entry.client = u"Acme";
        entry.duration = duration;
        entry.breakTime = breakTime;
        entry.status = store::EntryStatus::billable;
        entry.currency = u"USD";
        entry.rate = 1000;
        change([&](auto& transaction) { ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), entry)); });
    }
};

TEST_F(CalendarDaysTest, placesEntriesByStartAndEnd) {
    add(at(18, 9), 83, 17);
    addUntimed(at(18), 50);
    add(at(18, 22, 30), 400);
    add(at(18, 23, 55), 5);
    add(at(23, 9), 100); // the week after
    const auto week = load(PeriodKind::week, at(18));
    ASSERT_EQ(week.days().size(), 7U);
    const CalendarDay& day = week.days()[2];
    EXPECT_EQ(day.date.day, 18);
    EXPECT_EQ(day.untimed.size(), 1U);
    ASSERT_EQ(day.blocks.size(), 3U);
    EXPECT_EQ(day.blocks[0].span, (MinuteSpan{540, 600})); // 50 minutes and a break of ten
    EXPECT_FALSE(day.blocks[0].pastMidnight);
    EXPECT_EQ(day.blocks[1].span, (MinuteSpan{1350, 1440}));
    EXPECT_TRUE(day.blocks[1].pastMidnight);
    EXPECT_EQ(day.blocks[1].uncutEnd, 1590);
    EXPECT_EQ(day.blocks[2].drawn(), (MinuteSpan{1425, 1440}));
    EXPECT_EQ(day.blocks[2].lane, (Lane{1, 1, 2}));
    EXPECT_EQ(week.totals().items, 4U);
    EXPECT_DOUBLE_EQ(day.totals.amounts.at(u"USD"), 53.8);
    EXPECT_EQ(day.entries().front(), day.untimed.front());
}

TEST_F(CalendarDaysTest, aMonthIsWholeWeeksButCountsOnlyItsOwnDays) {
    addUntimed(at(1), 100);
    add(at(30, 23, 58), 100);
    add(at(30, 23, 59), 100); // in its last minute: not of this month
    add({.year = 2026, .month = 10, .day = 31, .hour = 9}, 100);
    const auto month = load(PeriodKind::month, at(18));
    ASSERT_EQ(month.days().size(), 42U);
    EXPECT_EQ(month.days().front().date.month, 10);
    EXPECT_EQ(month.days().front().date.day, 26);
    EXPECT_FALSE(month.days()[5].inPeriod);
    EXPECT_EQ(month.days()[5].totals.items, 0U);
    EXPECT_TRUE(month.days()[6].inPeriod);
    EXPECT_EQ(month.days()[6].totals.items, 1U);
    EXPECT_EQ(month.totals().items, 2U);
    const auto sundays = load(PeriodKind::month, at(18), WeekStart::sunday);
    EXPECT_EQ(sundays.days().size(), 35U);
    EXPECT_EQ(sundays.days().front().date.day, 1);
}

TEST_F(CalendarDaysTest, passesOverWhatTheFilterHides) {
    add(at(18, 9), 100);
    EntryFilter filter;
    filter.client = u"Other";
    EXPECT_EQ(load(PeriodKind::day, at(18)).totals().items, 1U);
    EXPECT_EQ(load(PeriodKind::day, at(18), WeekStart::monday, filter).totals().items, 0U);
}

TEST_F(CalendarDaysTest, beginsWhereTheFirstBlockIsSeen) {
    EXPECT_EQ(firstMinuteInView(load(PeriodKind::week, at(18)).days(), 600), 480);
    add(at(18, 20), 100);
    EXPECT_EQ(firstMinuteInView(load(PeriodKind::week, at(18)).days(), 600), 1185);
    add(at(19, 10), 100);
    EXPECT_EQ(firstMinuteInView(load(PeriodKind::week, at(18)).days(), 600), 480);
    add(at(20, 6), 100);
    EXPECT_EQ(firstMinuteInView(load(PeriodKind::week, at(18)).days(), 600), 345);
}

TEST_F(CalendarDaysTest, theCursorStopsAtEntriesAndFreeSlots) {
    addUntimed(at(18), 50);
    add(at(18, 0, 45), 100); // to 1:45
    const auto days = load(PeriodKind::day, at(18));
    const auto stops = stopsOf(days.days().front());
    ASSERT_EQ(stops.size(), 2U + 48U - 3U);
    EXPECT_EQ(stops[0].entry, days.days().front().untimed.front());
    EXPECT_EQ(stops[1].span, (MinuteSpan{0, 30}));
    EXPECT_EQ(stops[2].span, (MinuteSpan{45, 105}));
    EXPECT_EQ(stops[3].span, (MinuteSpan{120, 150}));
    EXPECT_EQ(stopAt(stops, 110), 2U);
    EXPECT_EQ(stopAt(stops, 0), 1U);
    EXPECT_EQ(stopAt(stops, -1), 0U);
    EXPECT_EQ(stopOf(stops, days.days().front().blocks.front().entry), 2U);
}

TEST(SlotAtTest, takesTheNearestSlotOfTheDay) {
    for (const auto& [minute, start] :
         std::map<int, int>{{0, 0}, {29, 0}, {30, 30}, {1439, 1410}, {1500, 1410}, {-5, 0}})
        EXPECT_EQ(slotAt(minute), (MinuteSpan{start, start + 30})) << minute;
}

TEST_F(CalendarDaysTest, writesOnEntriesWhatIsWanted) {
    add(at(18, 22, 30), 200);
    addUntimed(at(18), 150);
    const auto days = load(PeriodKind::day, at(18));
    const store::TimeEntry& timed = days.entries()[1];
    DisplaySettings display;
    EXPECT_EQ(entryLabel(timed, display, *locale_).time, u"10:30 PM – 12:30 AM");
    EXPECT_EQ(entryLabel(timed, display, *locale_).title, u"Acme");
    display.entryTime = EntryTimeShown::duration;
    EXPECT_EQ(entryLabel(timed, display, *locale_).time, u"2.00h");
    display.entryTime = EntryTimeShown::start;
    EXPECT_EQ(entryLabel(days.entries()[0], display, *locale_).time, u"1.50h");
    display.showClientName = false;
    display.entryTime = EntryTimeShown::none;
    EXPECT_EQ(entryLabel(timed, display, *locale_).time, u"");
    EXPECT_EQ(entryLabel(timed, display, *locale_).title, u"");
    EXPECT_EQ(entryLine(timed, *locale_), u"11/18/26\t10:30 PM\t12:30 AM\t2.00\tAcme\t\t\t");
}

TEST(EntryLabel, initialsStandForAName) {
    const std::pair<std::u16string, std::u16string> rows[] = {
        {u"", u""},         {u"Acme", u"Ac"},  {u"Acme Tool Works", u"AT"}, {u"A", u"A"}, {u"Ohm & Watt", u"OW"},
        {u" Blank", u"Bl"}, {u"A - B", u"AB"},
    };
    for (const auto& [name, initials] : rows)
        EXPECT_EQ(initialsOf(name), initials);
}

TEST(GridGeometry, pixelsAndTimesAgree) {
    const GridGeometry grid{.left = 50, .width = 705, .columns = 7, .hourHeight = 50};
    for (int column = 0; column < 7; ++column) {
        EXPECT_EQ(grid.columnAt(grid.columnLeft(column)), column);
        EXPECT_EQ(grid.columnAt(grid.columnLeft(column) + grid.columnWidth(column) - 1), column);
    }
    EXPECT_EQ(grid.columnAt(0), 0);
    EXPECT_EQ(grid.columnAt(9999), 6);
    EXPECT_EQ(grid.yOf(90), 75);
    EXPECT_EQ(grid.minuteAt(75), 90);
    EXPECT_EQ(grid.minuteAt(-1), -2);
    EXPECT_EQ(grid.height(), 1200);
}

} // namespace
} // namespace hourwright::app
