#include "platform/calendar.h"
#include "platform/file_time.h"
#include "support/print_system_time.h"

#include <gtest/gtest.h>

namespace hourwright::platform {
namespace {

// The calendar walked one day at a time, from nothing but the lengths of the months and the leap year rule.
struct DayWalker {
    unsigned year = 1601;
    unsigned month = 1;
    unsigned day = 1;
    unsigned weekday = 1; // 1 January 1601 was a Monday.

    void next() {
        static constexpr unsigned lengths[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        const unsigned length = month == 2 && leap ? 29 : lengths[month];
        weekday = weekday == 6 ? 0 : weekday + 1;
        if (++day <= length)
            return;
        day = 1;
        if (++month > 12) {
            month = 1;
            ++year;
        }
    }
};

SystemTime at(std::uint16_t year, std::uint16_t month, std::uint16_t day, std::uint16_t hour = 0,
              std::uint16_t minute = 0, std::uint16_t second = 0, std::uint16_t milliseconds = 0) {
    return {year, month, weekday(year, month, day), day, hour, minute, second, milliseconds};
}

TEST(FileTimeTest, daysOfTheWholeRangeConvertBothWays) {
    DayWalker date;
    for (std::uint64_t days = 0; date.year <= 30827; ++days, date.next()) {
        // Every day of the first and the last centuries, and the ends of February in between.
        const bool isChecked = date.year < 2800 || date.year > 30400 || (date.month == 2 && date.day >= 28);
        if (!isChecked)
            continue;
        const std::optional<SystemTime> fields = toSystemTime(FileTime{days * ticksPerDay});
        ASSERT_TRUE(fields) << days;
        ASSERT_TRUE(fields->year == date.year && fields->month == date.month && fields->day == date.day &&
                    fields->dayOfWeek == date.weekday)
            << "day " << days << ": " << date.year << '-' << date.month << '-' << date.day << " is a " << date.weekday;
        ASSERT_EQ(toFileTime(*fields), FileTime{days * ticksPerDay}) << days;
    }
}

TEST(FileTimeTest, knownInstants) {
    const struct {
        const char* name;
        SystemTime fields;
        std::uint64_t ticks;
    } cases[] = {
        {"first", {1601, 1, 1, 1, 0, 0, 0, 0}, 0},
        {"start of the Unix epoch", {1970, 1, 4, 1, 0, 0, 0, 0}, 116'444'736'000'000'000},
        {"a billion seconds later", {2001, 9, 0, 9, 1, 46, 40, 0}, 126'444'736'000'000'000},
        {"every field in use", {2004, 2, 0, 29, 23, 59, 58, 789}, 127'225'727'987'890'000},
        {"last", {30827, 12, 5, 31, 23, 59, 59, 999}, 9'223'149'887'999'990'000},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toFileTime(c.fields), FileTime{c.ticks}) << c.name;
        EXPECT_EQ(toSystemTime(FileTime{c.ticks}), c.fields) << c.name;
    }
}

TEST(FileTimeTest, partsOfAMillisecondAreTruncated) {
    EXPECT_EQ(toSystemTime(FileTime{9'999}), at(1601, 1, 1));
    EXPECT_EQ(toSystemTime(FileTime{19'999}), at(1601, 1, 1, 0, 0, 0, 1));
    EXPECT_EQ(toSystemTime(lastFileTime), at(30827, 12, 31, 23, 59, 59, 999));
}

TEST(FileTimeTest, instantsAfterTheLastYearHaveNoFields) {
    EXPECT_FALSE(toSystemTime(FileTime{lastFileTime.ticks + 1}));
    EXPECT_FALSE(toSystemTime(FileTime{0x7FFF'FFFF'FFFF'FFFF}));
    EXPECT_FALSE(toSystemTime(FileTime{0xFFFF'FFFF'FFFF'FFFF}));
}

TEST(FileTimeTest, theDayOfWeekGivenIsIgnored) {
    SystemTime time = at(2010, 3, 1, 8, 30);
    time.dayOfWeek = 99;
    EXPECT_EQ(toFileTime(time), toFileTime(at(2010, 3, 1, 8, 30)));
}

TEST(FileTimeTest, fieldsOutOfRangeAreRefused) {
    const struct {
        const char* name;
        SystemTime fields;
    } cases[] = {
        {"year before the first", at(1600, 12, 31)},
        {"year after the last", at(30828, 1, 1)},
        {"month 0", at(2010, 0, 1)},
        {"month 13", at(2010, 13, 1)},
        {"day 0", at(2010, 1, 0)},
        {"31 April", at(2010, 4, 31)},
        {"29 February of no leap year", at(2010, 2, 29)},
        {"29 February of a century", at(1900, 2, 29)},
        {"hour 24", at(2010, 1, 1, 24)},
        {"minute 60", at(2010, 1, 1, 0, 60)},
        {"second 60", at(2010, 1, 1, 0, 0, 60)},
        {"millisecond 1000", at(2010, 1, 1, 0, 0, 0, 1000)},
    };
    for (const auto& c : cases)
        EXPECT_FALSE(toFileTime(c.fields)) << c.name;
    EXPECT_TRUE(toFileTime(at(2000, 2, 29)));
}

} // namespace
} // namespace hourwright::platform
