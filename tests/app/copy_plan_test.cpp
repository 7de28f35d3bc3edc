#include "app/copy_plan.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using platform::StoreCopy;
using platform::SystemTime;

StoreCopy copyAt(std::uint16_t year, std::uint16_t month, std::uint16_t day, std::uint16_t hour = 9) {
    const SystemTime time{.year = year, .month = month, .day = day, .hour = hour};
    return {.name = platform::copyNameAt(time), .time = time, .source = {}};
}

constexpr SystemTime now{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16, .hour = 18};

std::vector<std::string> kept(std::vector<StoreCopy> copies, const SystemTime& at, const CopyRetention& retention) {
    const auto forgotten = copiesToForget(copies, at, retention);
    std::vector<std::string> names;
    for (const StoreCopy& copy : copies)
        if (std::ranges::find(forgotten, copy.name, &StoreCopy::name) == forgotten.end())
            names.push_back(copy.name.substr(0, 13));
    return names;
}

// What is shown of a copy agrees with what is deleted.
TEST(CopyPlan, SaysWhatEachCopyStandsFor) {
    const std::vector<StoreCopy> copies{copyAt(2026, 11, 16, 12), copyAt(2026, 11, 16, 9), copyAt(2026, 11, 15),
                                        copyAt(2026, 11, 14),     copyAt(2026, 11, 13),    copyAt(2026, 10, 31),
                                        copyAt(2026, 10, 30)};
    const CopyRetention retention{.days = 2, .weeks = 3, .months = 2};
    using enum CopyAge;
    EXPECT_EQ(agesOf(copies, retention), (std::vector{day, none, day, none, none, week, none}));
    EXPECT_EQ(agesOf(copies, {.days = 1, .weeks = 1, .months = 2}),
              (std::vector{day, none, none, none, none, month, none}));
    EXPECT_EQ(agesOf({}), std::vector<CopyAge>{});
}

TEST(CopyPlan, KeepsTheNewestOfDaysWeeksAndMonths) {
    struct Case {
        const char* why;
        CopyRetention retention;
        std::vector<StoreCopy> copies;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {"nothing there", {}, {}, {}},
        {"one stays", {.days = 1, .weeks = 0, .months = 0}, {copyAt(2026, 1, 2)}, {"2026-01-02_09"}},
        {"the newest of a day",
         {.days = 2, .weeks = 0, .months = 0},
         {copyAt(2026, 11, 14, 12), copyAt(2026, 11, 14, 9), copyAt(2026, 11, 13, 20), copyAt(2026, 11, 12)},
         {"2026-11-14_12", "2026-11-13_20"}},
        {"all of this day",
         {.days = 1, .weeks = 0, .months = 0},
         {copyAt(2026, 11, 16, 17), copyAt(2026, 11, 16, 9), copyAt(2026, 11, 15)},
         {"2026-11-16_17", "2026-11-16_09"}},
        {"days without copies do not count",
         {.days = 3, .weeks = 0, .months = 0},
         {copyAt(2026, 11, 1), copyAt(2026, 9, 1), copyAt(2025, 5, 5), copyAt(2025, 5, 4)},
         {"2026-11-01_09", "2026-09-01_09", "2025-05-05_09"}},
        {"weeks are those from Monday",
         {.days = 0, .weeks = 2, .months = 0},
         {copyAt(2026, 11, 9), copyAt(2026, 11, 8), copyAt(2026, 11, 2), copyAt(2026, 11, 1)},
         {"2026-11-09_09", "2026-11-08_09"}},
        {"months of different years",
         {.days = 0, .weeks = 0, .months = 2},
         {copyAt(2026, 10, 31), copyAt(2026, 10, 1), copyAt(2025, 10, 31), copyAt(2025, 9, 30)},
         {"2026-10-31_09", "2025-10-31_09"}},
        {"one copy may stand for its day, its week and its month",
         {.days = 1, .weeks = 1, .months = 1},
         {copyAt(2026, 11, 11), copyAt(2026, 11, 10), copyAt(2026, 11, 3), copyAt(2026, 10, 30)},
         {"2026-11-11_09"}},
        {"a copy of a clock that was ahead takes one place only",
         {.days = 2, .weeks = 0, .months = 0},
         {copyAt(2031, 1, 1), copyAt(2026, 11, 15), copyAt(2026, 11, 14)},
         {"2031-01-01_09", "2026-11-15_09"}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(kept(each.copies, now, each.retention), each.expected) << each.why;
}

// A copy a day for two years, forgotten as the days go by.
TEST(CopyPlan, TwoYearsOfDaysLeaveAWeekAMonthAndAYear) {
    std::vector<StoreCopy> copies;
    const auto first = platform::toFileTime({.year = 2025, .month = 1, .day = 1, .hour = 9})->ticks;
    for (std::uint64_t day = 0; day < 730; ++day) {
        const SystemTime time = *platform::toSystemTime({first + day * platform::ticksPerDay});
        copies.insert(copies.begin(), {.name = platform::copyNameAt(time), .time = time, .source = {}});
        for (const StoreCopy& gone : copiesToForget(copies, time))
            std::erase_if(copies, [&gone](const StoreCopy& copy) { return copy.name == gone.name; });
    }
    std::vector<std::string> days;
    for (const StoreCopy& copy : copies)
        days.push_back(copy.name.substr(0, 10));
    EXPECT_EQ(days, (std::vector<std::string>{"2026-12-31", "2026-12-30", "2026-12-29", "2026-12-28", "2026-12-27",
                                              "2026-12-26", "2026-12-25", "2026-12-20", "2026-12-13", "2026-12-06",
                                              "2026-11-30", "2026-10-31", "2026-09-30", "2026-08-31", "2026-07-31",
                                              "2026-06-30", "2026-05-31", "2026-04-30", "2026-03-31", "2026-02-28",
                                              "2026-01-31"}));
}

TEST(CopyPlan, SaysWhenACopyIsDue) {
    const auto copy = [](StoreCopy made, const char* records, const char* settings) {
        made.source = {.records = {records}, .settings = {settings}};
        return made;
    };
    struct Case {
        const char* why;
        std::vector<StoreCopy> copies;
        const char* records;
        const char* settings;
        bool due;
    };
    const Case cases[] = {
        {"the first", {}, "r", "s", true},
        {"no records yet", {}, "", "s", false},
        {"one of this day is there", {copy(copyAt(2026, 11, 16, 1), "old", "s")}, "r", "s", false},
        {"records changed", {copy(copyAt(2026, 11, 15, 23), "old", "s")}, "r", "s", true},
        {"nothing changed", {copy(copyAt(2026, 1, 1), "r", "s")}, "r", "s", false},
        {"settings changed yesterday", {copy(copyAt(2026, 11, 15), "r", "old")}, "r", "s", false},
        {"settings changed a week ago", {copy(copyAt(2026, 11, 9, 23), "r", "old")}, "r", "s", true},
        {"made by a clock that was ahead", {copy(copyAt(2031, 1, 1), "old", "s")}, "r", "s", true},
        {"this day's behind one of a clock that was ahead",
         {copy(copyAt(2031, 1, 1), "old", "s"), copy(copyAt(2026, 11, 16), "old", "s")},
         "r",
         "s",
         false},
    };
    for (const Case& each : cases)
        EXPECT_EQ(isCopyDue(each.copies, {.records = {each.records}, .settings = {each.settings}}, now), each.due)
            << each.why;
}

} // namespace
} // namespace hourwright::app
