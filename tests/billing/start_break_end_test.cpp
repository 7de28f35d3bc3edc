#include "billing/start_break_end.h"

#include "support/print_system_time.h"

#include <gtest/gtest.h>

namespace hourwright::billing {

namespace {

using platform::PlatformError;
using platform::SystemTime;
using resources::StringId;
using store::TimeEntry;

// 16 November 2026 is a Monday.
constexpr SystemTime at(std::uint16_t hour, std::uint16_t minute, std::uint16_t day = 16) {
    return {.year = 2026,
            .month = 11,
            .dayOfWeek = static_cast<std::uint16_t>(day - 15),
            .day = day,
            .hour = hour,
            .minute = minute};
}

TimeEntry entryAt(std::uint16_t hour, std::uint16_t minute, std::int32_t duration, std::int32_t breakTime) {
    TimeEntry entry;
    store::setDateAndStart(entry, at(hour, minute));
    entry.duration = duration;
    entry.breakTime = breakTime;
    return entry;
}

constexpr SystemTime now = at(17, 45, 18);

TEST(StartBreakEnd, opensWithTheEndThatTheHoursMake) {
    struct Row {
        std::int32_t duration, breakTime;
        SystemTime end;
    };
    const Row rows[] = {
        {83, 17, at(10, 0)}, {183, 0, at(10, 49)}, {0, 0, at(9, 0)}, {1600, 0, at(1, 0, 17)}, {33, 0, at(9, 20)},
    };
    for (const Row& row : rows) {
        const StartBreakEnd dialog(entryAt(9, 0, row.duration, row.breakTime), now);
        EXPECT_EQ(dialog.start(), at(9, 0));
        EXPECT_EQ(dialog.end(), row.end) << row.duration << " and " << row.breakTime;
    }
}

TEST(StartBreakEnd, offersTheTimeOfNowOnTheDayOfAnEntryWithoutAStart) {
    TimeEntry entry;
    store::setDateWithoutStart(entry, at(0, 0));
    entry.duration = 50;
    const StartBreakEnd dialog(entry, now);
    EXPECT_EQ(dialog.start(), at(17, 45));
    EXPECT_EQ(dialog.end(), at(18, 15));
}

TEST(StartBreakEnd, theEndFollowsStartAndBreakOnly) {
    StartBreakEnd dialog(entryAt(9, 0, 150, 0), now);
    dialog.setStart({.hour = 10, .minute = 5});
    EXPECT_EQ(dialog.end(), at(11, 35));
    EXPECT_EQ(dialog.setBreak(u".5"), std::nullopt);
    EXPECT_EQ(dialog.end(), at(12, 5));
    dialog.setEnd(now); // "Now", two days later: the time of day counts
    EXPECT_EQ(dialog.end(), at(17, 45));
    EXPECT_EQ(dialog.start(), at(10, 5));
    EXPECT_EQ(dialog.breakText(), u".5");
    dialog.setStartMinute(quickMinutes[6]);
    EXPECT_EQ(dialog.start(), at(10, 45));
    EXPECT_EQ(dialog.end(), at(12, 45));
    dialog.setEndMinute(quickMinutes[2]);
    EXPECT_EQ(dialog.end(), at(12, 15));
    EXPECT_EQ(dialog.start(), at(10, 45));
}

TEST(StartBreakEnd, storesStartBreakAndTheDurationBetween) {
    struct Row {
        SystemTime start, end;
        std::u16string breakText;
        TimeRules rules;
        std::int32_t duration;
    };
    const Row rows[] = {
        {at(9, 0), at(9, 20), u"", {.preciseMinutes = true}, 34},   {at(9, 0), at(9, 20), u"", {}, 33},
        {at(9, 0), at(10, 10), u"", {.preciseMinutes = true}, 117}, {at(23, 0), at(1, 0), u"0.5", {}, 150},
        {at(9, 0), at(10, 6), u"", {.granularityOn = true}, 125},
    };
    for (const Row& row : rows) {
        TimeEntry entry = entryAt(7, 0, 100, 25);
        entry.task = u"kept";
        StartBreakEnd dialog(entry, now);
        dialog.setStart(row.start);
        EXPECT_EQ(dialog.setBreak(row.breakText), std::nullopt);
        dialog.setEnd(row.end);
        EXPECT_EQ(dialog.apply(row.rules, entry), std::nullopt);
        TimeEntry expected;
        expected.task = u"kept";
        store::setDateAndStart(expected, row.start);
        expected.duration = row.duration;
        expected.breakTime = row.breakText.empty() ? 0 : 50;
        EXPECT_EQ(entry, expected) << row.duration;
    }
}

TEST(StartBreakEnd, aBreakThatWasNotTouchedIsNotReadBack) {
    TimeEntry entry = entryAt(9, 0, 100, 201); // "2.01" typed would be cut to 200
    const StartBreakEnd dialog(entry, now);
    EXPECT_EQ(dialog.breakText(), u"2.01");
    ASSERT_EQ(dialog.apply({}, entry), std::nullopt);
    EXPECT_EQ(entry.breakTime, 201);
}

TEST(StartBreakEnd, aRefusalLeavesTheEntry) {
    struct Row {
        const char* name;
        std::u16string breakText;
        SystemTime end;
        DraftRefusal refusal;
    };
    const Row rows[] = {
        {"letters", u"1h", at(12, 0), {DraftField::breakTime, StringId::numericOnly}},
        {"too long", u"656", at(12, 0), {DraftField::breakTime, StringId::error, PlatformError::invalidParameter}},
        {"break of the whole time",
         u"4",
         at(12, 0),
         {DraftField::end, StringId::error, PlatformError::invalidParameter}},
        {"end within the hour", u"", at(9, 10), {DraftField::end, StringId::error, PlatformError::invalidParameter}},
    };
    for (const Row& row : rows) {
        TimeEntry entry = entryAt(9, 30, 100, 25);
        const TimeEntry before = entry;
        StartBreakEnd dialog(entry, now);
        const auto refusal = dialog.setBreak(row.breakText);
        EXPECT_EQ(refusal.has_value(), row.refusal.field == DraftField::breakTime) << row.name;
        if (refusal) {
            EXPECT_EQ(dialog.end(), at(10, 45)) << row.name;
        }
        dialog.setEnd(row.end);
        EXPECT_EQ(dialog.apply({}, entry), row.refusal) << row.name;
        EXPECT_EQ(entry, before) << row.name;
        ASSERT_EQ(dialog.setBreak(u"0"), std::nullopt) << row.name;
        EXPECT_EQ(dialog.apply({}, entry), std::nullopt) << row.name;
    }
}

} // namespace

} // namespace hourwright::billing
