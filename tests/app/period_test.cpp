#include "app/period.h"

#include "support/fake_clock.h"
#include "support/print_system_time.h"

#include <gtest/gtest.h>

#include <string>

namespace hourwright::app {
namespace {

using platform::FileTime;
using platform::SystemTime;
using platform::WeekStart;

SystemTime date(std::uint16_t year, std::uint16_t month, std::uint16_t day) {
    return {.year = year, .month = month, .day = day};
}

SystemTime at(SystemTime day, std::uint16_t hour, std::uint16_t minute, std::uint16_t second = 0) {
    day.hour = hour;
    day.minute = minute;
    day.second = second;
    return day;
}

/// The instant as fields without the day of week.
SystemTime fields(FileTime instant) {
    SystemTime time = platform::toSystemTime(instant).value_or(SystemTime{});
    time.dayOfWeek = 0;
    return time;
}

constexpr auto sunday = WeekStart::sunday;
constexpr auto monday = WeekStart::monday;

struct Bounds {
    const char* name;
    PeriodKind kind;
    SystemTime picked;
    WeekStart weekStart;
    SystemTime start;
    SystemTime end;
};

const Bounds boundsCases[] = {
    {"a day", PeriodKind::day, at(date(2026, 11, 16), 14, 30), sunday, date(2026, 11, 16),
     at(date(2026, 11, 16), 23, 59, 59)},
    {"a week from Sunday", PeriodKind::week, at(date(2026, 11, 18), 8, 0), sunday, date(2026, 11, 15),
     at(date(2026, 11, 21), 23, 59, 59)},
    {"a week from Monday", PeriodKind::week, date(2026, 11, 18), monday, date(2026, 11, 16),
     at(date(2026, 11, 22), 23, 59, 59)},
    {"Sunday begins its week", PeriodKind::week, date(2026, 11, 15), sunday, date(2026, 11, 15),
     at(date(2026, 11, 21), 23, 59, 59)},
    {"Sunday ends its week", PeriodKind::week, date(2026, 11, 15), monday, date(2026, 11, 9),
     at(date(2026, 11, 15), 23, 59, 59)},
    {"a week over the year's end", PeriodKind::week, date(2027, 1, 1), monday, date(2026, 12, 28),
     at(date(2027, 1, 3), 23, 59, 59)},
    {"a month ends a minute early", PeriodKind::month, date(2010, 2, 14), sunday, date(2010, 2, 1),
     at(date(2010, 2, 28), 23, 59)},
    {"a leap February", PeriodKind::month, date(2024, 2, 29), sunday, date(2024, 2, 1), at(date(2024, 2, 29), 23, 59)},
    {"December", PeriodKind::month, date(2025, 12, 31), sunday, date(2025, 12, 1), at(date(2025, 12, 31), 23, 59)},
    {"the last month of all", PeriodKind::month, date(30827, 12, 31), sunday, date(30827, 12, 1),
     at(date(30827, 12, 31), 23, 59)},
    {"the last day of all", PeriodKind::day, date(30827, 12, 31), sunday, date(30827, 12, 31),
     at(date(30827, 12, 31), 23, 59, 59)},
};

TEST(Period, CoversItsDayWeekOrMonth) {
    for (const Bounds& c : boundsCases) {
        SCOPED_TRACE(c.name);
        const auto period = Period::around(c.kind, c.picked, c.weekStart);
        ASSERT_TRUE(period);
        EXPECT_EQ(fields(period->start()), c.start);
        EXPECT_EQ(fields(period->end()), c.end);
    }
}

TEST(Period, FindsTheDayOfWeekItself) {
    SystemTime wrong = date(2026, 11, 18);
    wrong.dayOfWeek = 6; // a Wednesday
    const auto week = Period::around(PeriodKind::week, wrong, sunday);
    ASSERT_TRUE(week);
    EXPECT_EQ(fields(week->start()), date(2026, 11, 15));
    EXPECT_EQ(Period::around(PeriodKind::day, wrong, sunday)->currentDate().dayOfWeek, 3);
}

struct Refused {
    const char* name;
    PeriodKind kind;
    SystemTime picked;
    WeekStart weekStart;
};

TEST(Period, RefusesWhatTheCalendarLacks) {
    const Refused cases[] = {
        {"no date at all", PeriodKind::day, {}, sunday},
        {"30 February", PeriodKind::month, date(2026, 2, 30), sunday},
        {"month 13", PeriodKind::day, date(2026, 13, 1), sunday},
        {"before the calendar", PeriodKind::day, date(1600, 12, 31), sunday},
        {"a week that begins before it", PeriodKind::week, date(1601, 1, 1), sunday}, // a Monday
        {"a week that ends after it", PeriodKind::week, date(30827, 12, 31), sunday}, // a Friday
        {"a custom period without its days", PeriodKind::custom, date(2026, 11, 16), sunday},
    };
    for (const Refused& c : cases)
        EXPECT_FALSE(Period::around(c.kind, c.picked, c.weekStart)) << c.name;
}

struct Moves {
    const char* name;
    PeriodKind kind;
    SystemTime from;
    std::string steps; ///< p: previous, n: next
    SystemTime current;
    SystemTime start;
};

TEST(Period, MovesByItsOwnLength) {
    const Moves cases[] = {
        {"day back over the month", PeriodKind::day, date(2024, 3, 1), "p", date(2024, 2, 29), date(2024, 2, 29)},
        {"day on over the year", PeriodKind::day, date(2025, 12, 31), "n", date(2026, 1, 1), date(2026, 1, 1)},
        {"week back", PeriodKind::week, date(2026, 11, 18), "p", date(2026, 11, 8), date(2026, 11, 8)},
        {"weeks on", PeriodKind::week, date(2026, 11, 18), "nn", date(2026, 11, 29), date(2026, 11, 29)},
        {"month back keeps the day", PeriodKind::month, date(2026, 3, 15), "p", date(2026, 2, 15), date(2026, 2, 1)},
        {"into a leap February", PeriodKind::month, date(2024, 3, 31), "p", date(2024, 2, 29), date(2024, 2, 1)},
        {"into a short February", PeriodKind::month, date(2023, 3, 31), "p", date(2023, 2, 28), date(2023, 2, 1)},
        {"on into a short month", PeriodKind::month, date(2026, 8, 31), "n", date(2026, 9, 30), date(2026, 9, 1)},
        {"the shorter day stays", PeriodKind::month, date(2024, 3, 31), "pp", date(2024, 1, 29), date(2024, 1, 1)},
        {"December to January", PeriodKind::month, date(2025, 12, 5), "n", date(2026, 1, 5), date(2026, 1, 1)},
        {"January to December", PeriodKind::month, date(2026, 1, 31), "p", date(2025, 12, 31), date(2025, 12, 1)},
    };
    for (const Moves& c : cases) {
        SCOPED_TRACE(c.name);
        auto period = Period::around(c.kind, c.from, sunday);
        ASSERT_TRUE(period);
        for (const char step : c.steps)
            EXPECT_TRUE(step == 'p' ? period->previous() : period->next());
        SystemTime current = period->currentDate();
        current.dayOfWeek = 0;
        EXPECT_EQ(current, c.current);
        EXPECT_EQ(fields(period->start()), c.start);
    }
}

TEST(Period, StaysWhereTheCalendarEnds) {
    struct Edge {
        const char* name;
        PeriodKind kind;
        SystemTime first;
        SystemTime last;
    };
    const Edge cases[] = {
        {"day", PeriodKind::day, date(1601, 1, 1), date(30827, 12, 31)},
        {"week", PeriodKind::week, date(1601, 1, 1), date(30827, 12, 26)},
        {"month", PeriodKind::month, date(1601, 1, 31), date(30827, 12, 1)},
    };
    for (const Edge& c : cases) {
        SCOPED_TRACE(c.name);
        auto first = Period::around(c.kind, c.first, monday);
        auto last = Period::around(c.kind, c.last, monday);
        ASSERT_TRUE(first && last);
        const Period firstBefore = *first;
        const Period lastBefore = *last;
        EXPECT_FALSE(first->previous());
        EXPECT_FALSE(last->next());
        EXPECT_EQ(*first, firstBefore);
        EXPECT_EQ(*last, lastBefore);
    }
}

TEST(Period, GoesToADateAndToToday) {
    const test::FakeClock clock(at(date(2026, 11, 18), 17, 45, 12));
    auto week = Period::around(PeriodKind::week, date(2024, 1, 1), monday);
    ASSERT_TRUE(week);
    EXPECT_TRUE(week->goToToday(clock));
    EXPECT_EQ(fields(week->start()), date(2026, 11, 16));
    EXPECT_TRUE(week->setDate(date(2026, 12, 6)));
    EXPECT_EQ(fields(week->start()), date(2026, 11, 30));
    EXPECT_FALSE(week->setDate(date(2026, 11, 31)));
    EXPECT_EQ(fields(week->start()), date(2026, 11, 30));
}

TEST(Period, CustomCoversBothItsDaysAndStays) {
    auto period = Period::custom(at(date(2026, 11, 3), 9, 15), at(date(2026, 12, 24), 18, 0));
    ASSERT_TRUE(period);
    const Period before = *period;
    EXPECT_EQ(fields(period->start()), date(2026, 11, 3));
    EXPECT_EQ(fields(period->end()), at(date(2026, 12, 24), 23, 59, 59));
    EXPECT_FALSE(period->previous());
    EXPECT_FALSE(period->next());
    EXPECT_FALSE(period->setDate(date(2026, 1, 1)));
    EXPECT_FALSE(period->goToToday(test::FakeClock(date(2026, 1, 1))));
    EXPECT_EQ(*period, before);

    EXPECT_FALSE(Period::custom({}, date(2026, 12, 24)));
    EXPECT_FALSE(Period::custom(date(2026, 11, 3), date(2026, 11, 31)));
}

TEST(Period, WalksFromItsFirstInstantToItsLast) {
    const auto day = Period::around(PeriodKind::day, date(2026, 11, 16), sunday);
    const FileTime midnight = platform::toFileTime(date(2026, 11, 16)).value();
    EXPECT_EQ(day->dateRange().after, FileTime{midnight.ticks - 1});
    EXPECT_EQ(day->dateRange().last, platform::toFileTime(at(date(2026, 11, 16), 23, 59, 59)));
    // Nothing can be earlier than the first day of all.
    EXPECT_EQ(Period::around(PeriodKind::day, date(1601, 1, 1), sunday)->dateRange().after, std::nullopt);
}

TEST(PeriodKind, ReadsStoredNumbers) {
    struct Stored {
        std::uint32_t number;
        PeriodKind kind;
    };
    const Stored cases[] = {{1, PeriodKind::day},    {2, PeriodKind::week}, {3, PeriodKind::month},
                            {4, PeriodKind::custom}, {0, PeriodKind::week}, {5, PeriodKind::week},
                            {257, PeriodKind::week}};
    for (const Stored& c : cases)
        EXPECT_EQ(periodKind(c.number), c.kind) << c.number;
}

} // namespace
} // namespace hourwright::app
