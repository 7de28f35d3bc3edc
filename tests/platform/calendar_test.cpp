#include "platform/calendar.h"
#include "support/print_system_time.h"

#include <gtest/gtest.h>
#include <limits>

namespace hourwright::platform {

namespace {

TEST(CalendarTest, weekdaysOfKnownDates) {
    const struct {
        std::uint16_t year, month, day, expected;
    } cases[] = {
        {2000, 1, 1, 6}, {2004, 2, 29, 0}, {2010, 3, 1, 1},    {1601, 1, 1, 1}, {1900, 2, 28, 3},
        {1900, 3, 1, 4}, {1969, 7, 20, 0}, {2000, 2, 29, 2},   {2000, 3, 1, 3}, {2026, 11, 16, 1},
        {2100, 3, 1, 1}, {2400, 2, 29, 2}, {30827, 12, 31, 5},
    };
    for (const auto& c : cases)
        EXPECT_EQ(weekday(c.year, c.month, c.day), c.expected) << c.year << '-' << c.month << '-' << c.day;
}

TEST(CalendarTest, lengthsOfMonths) {
    const std::uint16_t lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (std::uint16_t month = 1; month <= 12; ++month)
        EXPECT_EQ(daysInMonth(2010, month), lengths[month - 1]) << month;
    const struct {
        std::uint16_t year, length;
    } februaries[] = {{1600, 29}, {1700, 28}, {1900, 28}, {1996, 29}, {2000, 29}, {2001, 28}, {2100, 28}};
    for (const auto& c : februaries)
        EXPECT_EQ(daysInMonth(c.year, 2), c.length) << c.year;
    EXPECT_EQ(daysInMonth(2010, 0), 0);
    EXPECT_EQ(daysInMonth(2010, 13), 0);
}

TEST(CalendarTest, clearTimeLeavesTheDate) {
    SystemTime time{2010, 3, 1, 1, 23, 59, 58, 997};
    clearTime(time);
    EXPECT_EQ(time, (SystemTime{2010, 3, 1, 1, 0, 0, 0, 0}));
}

using Add = bool (*)(SystemTime&, std::int64_t);

struct AddCase {
    const char* name;
    Add add;
    SystemTime from;
    std::int64_t n;
    SystemTime expected;
};

TEST(CalendarTest, movesByDaysMinutesAndSeconds) {
    const AddCase cases[] = {
        {"a day over a month's end", addDays, {2010, 2, 0, 28, 13, 14, 15, 16}, 1, {2010, 3, 1, 1, 13, 14, 15, 16}},
        {"a day into a leap day", addDays, {2004, 2, 6, 28, 0, 0, 0, 0}, 1, {2004, 2, 0, 29, 0, 0, 0, 0}},
        {"a week back over a year's end", addDays, {2010, 1, 0, 3, 0, 0, 0, 0}, -7, {2009, 12, 0, 27, 0, 0, 0, 0}},
        {"whole range", addDays, {1601, 1, 1, 1, 0, 0, 0, 0}, 10'674'941, {30827, 12, 5, 31, 0, 0, 0, 0}},
        {"a wrong day of week is put right", addDays, {2010, 3, 6, 1, 0, 0, 0, 0}, 1, {2010, 3, 2, 2, 0, 0, 0, 0}},
        {"a minute back over midnight", addMinutes, {2010, 3, 1, 1, 0, 0, 0, 0}, -1, {2010, 2, 0, 28, 23, 59, 0, 0}},
        {"a day of minutes", addMinutes, {2010, 3, 1, 1, 8, 30, 1, 0}, 1440, {2010, 3, 2, 2, 8, 30, 1, 0}},
        {"a second back over midnight", addSeconds, {2010, 3, 1, 1, 0, 0, 0, 5}, -1, {2010, 2, 0, 28, 23, 59, 59, 5}},
        {"a leap year of seconds", addSeconds, {2004, 1, 4, 1, 1, 2, 3, 4}, 31'622'400, {2005, 1, 6, 1, 1, 2, 3, 4}},
        {"nothing", addDays, {2010, 3, 6, 1, 1, 2, 3, 4}, 0, {2010, 3, 6, 1, 1, 2, 3, 4}},
    };
    for (const AddCase& c : cases) {
        SystemTime time = c.from;
        EXPECT_TRUE(c.add(time, c.n)) << c.name;
        EXPECT_EQ(time, c.expected) << c.name;
    }
}

TEST(CalendarTest, movesOutOfRangeChangeNothing) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    const SystemTime first{1601, 1, 1, 1, 0, 0, 0, 0};
    const SystemTime last{30827, 12, 5, 31, 23, 59, 59, 999};
    const AddCase cases[] = {
        {"before the first day", addDays, first, -1, first},
        {"before the first second", addSeconds, first, -1, first},
        {"after the last second", addSeconds, last, 1, last},
        {"after the last minute", addMinutes, last, 1, last},
        {"a product beyond 64 bits", addDays, first, 21'350'399, first},
        {"most", addDays, first, most, first},
        {"least", addSeconds, last, least, last},
        {"no date", addDays, {2010, 2, 2, 30, 0, 0, 0, 0}, 1, {2010, 2, 2, 30, 0, 0, 0, 0}},
    };
    for (const AddCase& c : cases) {
        SystemTime time = c.from;
        EXPECT_FALSE(c.add(time, c.n)) << c.name;
        EXPECT_EQ(time, c.expected) << c.name;
    }
}

TEST(CalendarTest, movesByMonths) {
    const struct {
        const char* name;
        SystemTime from;
        int n;
        SystemTime expected;
    } cases[] = {
        {"next", {2010, 1, 0, 31, 9, 8, 7, 6}, 1, {2010, 2, 1, 1, 9, 8, 7, 6}},
        {"December on", {2009, 12, 4, 31, 0, 0, 0, 0}, 1, {2010, 1, 5, 1, 0, 0, 0, 0}},
        {"November on", {2009, 11, 1, 30, 0, 0, 0, 0}, 1, {2009, 12, 2, 1, 0, 0, 0, 0}},
        {"January back", {2010, 1, 0, 31, 0, 0, 0, 0}, -1, {2009, 12, 2, 1, 0, 0, 0, 0}},
        {"February back", {2010, 2, 0, 28, 0, 0, 0, 0}, -1, {2010, 1, 5, 1, 0, 0, 0, 0}},
        {"none, the day still becomes 1", {2010, 2, 0, 28, 0, 0, 0, 0}, 0, {2010, 2, 1, 1, 0, 0, 0, 0}},
        {"half a year over a year's end", {2009, 9, 3, 30, 0, 0, 0, 0}, 6, {2010, 3, 1, 1, 0, 0, 0, 0}},
        {"a year back", {2010, 12, 5, 31, 0, 0, 0, 0}, -12, {2009, 12, 2, 1, 0, 0, 0, 0}},
        {"a year on from March", {2009, 3, 1, 30, 0, 0, 0, 0}, 12, {2010, 3, 1, 1, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        SystemTime time = c.from;
        EXPECT_TRUE(addMonths(time, c.n)) << c.name;
        EXPECT_EQ(time, c.expected) << c.name;
    }
}

TEST(CalendarTest, monthsOutOfRangeChangeNothing) {
    const struct {
        const char* name;
        SystemTime from;
        int n;
    } cases[] = {
        {"before the first month", {1601, 1, 3, 31, 0, 0, 0, 0}, -1},
        {"after the last month", {30827, 12, 5, 31, 0, 0, 0, 0}, 1},
        {"twelve from December: one year's carry leaves month 0", {2009, 12, 4, 31, 0, 0, 0, 0}, 12},
        {"least", {2010, 2, 0, 28, 0, 0, 0, 0}, std::numeric_limits<int>::min()},
    };
    for (const auto& c : cases) {
        SystemTime time = c.from;
        EXPECT_FALSE(addMonths(time, c.n)) << c.name;
        EXPECT_EQ(time, c.from) << c.name;
    }
}

TEST(CalendarTest, setDayTakesOneToThirtyOne) {
    const SystemTime from{2010, 3, 1, 1, 9, 8, 7, 6};
    const struct {
        std::uint16_t day;
        SystemTime expected;
    } cases[] = {
        {1, from}, {2, {2010, 3, 2, 2, 9, 8, 7, 6}}, {31, {2010, 3, 3, 31, 9, 8, 7, 6}}, {0, from}, {32, from},
    };
    for (const auto& c : cases) {
        SystemTime time = from;
        setDay(time, c.day);
        EXPECT_EQ(time, c.expected) << c.day;
    }
}

TEST(CalendarTest, daysBackToTheStartOfTheWeek) {
    // 28 February 2010 was a Sunday.
    const struct {
        std::uint16_t month, day;
        int fromSunday, fromMonday;
    } cases[] = {{2, 28, 0, -6}, {3, 1, -1, 0},  {3, 2, -2, -1}, {3, 3, -3, -2},
                 {3, 4, -4, -3}, {3, 5, -5, -4}, {3, 6, -6, -5}};
    for (const auto& c : cases) {
        const SystemTime date{.year = 2010, .month = c.month, .dayOfWeek = 3, .day = c.day};
        EXPECT_EQ(weekStartOffset(date, WeekStart::sunday), c.fromSunday) << c.month << '-' << c.day;
        EXPECT_EQ(weekStartOffset(date, WeekStart::monday), c.fromMonday) << c.month << '-' << c.day;
    }
}

} // namespace
} // namespace hourwright::platform
