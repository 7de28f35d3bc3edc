#include "billing/duration.h"
#include "billing/duration_list.h"
#include "platform/utf.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

using namespace hourwright;
using namespace hourwright::billing;
using platform::SystemTime;
using store::TimeEntry;

namespace {

constexpr TimeRules granularity(std::uint16_t minutes) {
    return {.granularityOn = true, .granularityMinutes = minutes};
}
constexpr TimeRules plain{};
constexpr TimeRules precise{.preciseMinutes = true};

SystemTime at(std::uint16_t day, std::uint16_t hour, std::uint16_t minute, std::uint16_t second = 0) {
    return {.year = 2026, .month = 3, .day = day, .hour = hour, .minute = minute, .second = second};
}

struct TypedCase {
    std::u16string text;
    TimeRules rules;
    std::int32_t stored;
};

TEST(TypedDuration, IsCutOffAndRaisedToTheGranularity) {
    const TypedCase cases[] = {
        {u"1.5", plain, 150},
        {u"1.555", plain, 155},
        {u"0.29", plain, 29},
        {u"4.35", plain, 435},
        {u"8.7", plain, 870},
        {u"", plain, 0},
        {u"-0.009", plain, 0},
        {u"1,5", plain, 100},
        {u"655.35", plain, 65535},
        {u"655.3599", plain, 65535},
        {u"1.1", {.granularityOn = false, .granularityMinutes = 15}, 110},
        {u"1.1", granularity(15), 125},
        {u"1.25", granularity(15), 125},
        {u"1.2501", granularity(15), 150},
        {u"0", granularity(15), 0},
        {u"0.001", granularity(15), 25},
        {u"0.01", granularity(10), 16},
        {u"0.1", granularity(10), 16},
        {u"0.16", granularity(10), 16},
        {u"0.17", granularity(10), 33},
        {u"0.5", granularity(10), 50},
        {u"0.51", granularity(10), 66},
        {u"0.01", granularity(6), 10},
        {u"0.2", granularity(6), 20},
        {u"0.7", granularity(50), 83},
        {u"1.1", granularity(0), 110},
        {u"-0.01", granularity(50), 0}, // raising goes up, here to nothing
    };
    for (const auto& c : cases) {
        TimeEntry entry;
        entry.duration = 7;
        EXPECT_TRUE(setDurationFromText(entry, c.text, c.rules)) << platform::toUtf8(c.text);
        EXPECT_EQ(entry.duration, c.stored) << platform::toUtf8(c.text) << " by " << c.rules.granularityMinutes;
    }
}

TEST(TypedBreak, IsCutOffWithoutGranularity) {
    const TypedCase cases[] = {{u"0.5", {}, 50}, {u"0.4", {}, 40}, {u"0.019", {}, 1}, {u"", {}, 0}};
    for (const auto& c : cases) {
        TimeEntry entry;
        entry.breakTime = 7;
        EXPECT_TRUE(setBreakFromText(entry, c.text)) << platform::toUtf8(c.text);
        EXPECT_EQ(entry.breakTime, c.stored) << platform::toUtf8(c.text);
    }
}

TEST(TypedHours, AreRefusedWhenTheFieldCannotHoldThem) {
    for (const std::u16string text : {u"655.36", u"-0.01", u"-3", u"99999999999", u"1e400", u"-1e400"}) {
        TimeEntry entry;
        entry.duration = 12;
        entry.breakTime = 34;
        EXPECT_FALSE(setDurationFromText(entry, text, plain)) << platform::toUtf8(text);
        EXPECT_FALSE(setBreakFromText(entry, text)) << platform::toUtf8(text);
        EXPECT_EQ(entry.duration, 12);
        EXPECT_EQ(entry.breakTime, 34);
    }
    EXPECT_FALSE(durationFromHours(655.34, granularity(15))) << "raised over the largest duration";
    EXPECT_FALSE(durationFromHours(-1.0, granularity(15))) << "a multiple of the granularity, but negative";
}

struct MinutesCase {
    std::int32_t stored;
    int minutes;
};

TEST(Minutes, AreExactOnlyForFractionsOfTheFirstHour) {
    const MinutesCase cases[] = {
        {0, 0},      {17, 10},       {33, 20},   {67, 40},   {83, 50},   {16, 9},     {34, 20},
        {50, 30},    {66, 39},       {84, 50},   {117, 70},  {133, 79},  {167, 100},  {183, 109},
        {1234, 740}, {65535, 39321}, {-50, -30}, {-17, -10}, {-83, -49}, {-100, -60}, {2147483647, 1288490188},
    };
    for (const auto& c : cases) {
        TimeEntry entry;
        entry.duration = c.stored;
        EXPECT_EQ(minutesOfDuration(entry), c.minutes) << c.stored;
        EXPECT_EQ(minutesOfBreak(entry), 0);
        entry.duration = 0;
        entry.breakTime = c.stored;
        EXPECT_EQ(minutesOfBreak(entry), c.minutes) << c.stored;
    }
}

struct StartEndCase {
    SystemTime start;
    SystemTime end;
    double breakHours;
    TimeRules rules;
    std::optional<std::int32_t> stored;
};

TEST(StartAndEnd, GiveTheDuration) {
    const StartEndCase cases[] = {
        {at(2, 9, 0), at(2, 9, 20), 0, plain, 33},
        {at(2, 9, 0), at(2, 9, 20), 0, precise, 34},
        {at(2, 9, 0), at(2, 9, 10), 0, plain, 16},
        {at(2, 9, 0), at(2, 9, 10), 0, precise, 17},
        {at(2, 9, 0), at(2, 9, 40), 0, plain, 66},
        {at(2, 9, 0), at(2, 9, 40), 0, precise, 67},
        {at(2, 9, 0), at(2, 9, 50), 0, plain, 83},
        {at(2, 9, 0), at(2, 9, 50), 0, precise, 84},
        {at(2, 9, 0), at(2, 10, 10), 0, plain, 116},
        {at(2, 9, 0), at(2, 10, 10), 0, precise, 117},
        {at(2, 9, 0), at(2, 9, 11), 0, precise, 18},
        {at(2, 9, 0), at(2, 9, 30), 0, precise, 50},
        {at(2, 9, 0), at(2, 10, 0), 0.25, precise, 75},
        {at(2, 9, 0), at(2, 10, 10), 0.5, granularity(15), 75},
        {at(2, 23, 0), at(2, 1, 0), 0, plain, 200},
        {at(31, 22, 30), at(31, 6, 0), 0, plain, 750},
        {at(2, 9, 0, 1), at(2, 9, 20), 0, plain, 33},
        {at(2, 9, 0), at(2, 9, 20, 59), 0, plain, 33},
        {at(2, 9, 0), at(2, 9, 0), 0, plain, 0},
        {at(2, 9, 30), at(2, 9, 10), 0, plain, std::nullopt}, // the same hour is not the next day
        {at(2, 9, 0), at(2, 10, 0), 1.5, plain, std::nullopt},
        {at(2, 9, 0), at(1, 8, 0), 0, plain, std::nullopt}, // an earlier day stays as it is
        {at(1, 0, 0), at(30, 0, 0), 0, plain, std::nullopt},
        {at(1, 0, 0), at(32, 0, 0), 0, plain, std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(durationFromStartEnd(c.start, c.end, c.breakHours, c.rules), c.stored)
            << c.start.hour << ":" << c.start.minute << " to " << c.end.hour << ":" << c.end.minute << ", break "
            << c.breakHours << (c.rules.preciseMinutes ? ", precise" : "");
}

struct EndCase {
    std::int32_t duration;
    std::int32_t breakTime;
    SystemTime start;
    SystemTime end;
};

TEST(EndTime, IsStartPlusMinutesOfDurationAndBreak) {
    const EndCase cases[] = {
        {83, 17, at(2, 9, 0), at(2, 10, 0)},   {183, 0, at(2, 9, 0), at(2, 10, 49)},
        {0, 50, at(2, 9, 0), at(2, 9, 30)},    {-100, 50, at(2, 9, 0), at(2, 9, 30)},
        {50, -100, at(2, 9, 0), at(2, 9, 30)}, {200, 0, at(31, 23, 0, 1), {2026, 4, 3, 1, 1, 0, 1, 0}},
    };
    for (const auto& c : cases) {
        TimeEntry entry;
        entry.duration = c.duration;
        entry.breakTime = c.breakTime;
        SystemTime end = endTime(c.start, entry);
        end.dayOfWeek = c.end.dayOfWeek;
        EXPECT_EQ(end, c.end) << c.duration << " and " << c.breakTime << " give " << end.hour << ":" << end.minute;
    }
}

TEST(Hours, AreShownWithTwoDecimals) {
    TimeEntry entry;
    entry.duration = 1205;
    entry.breakTime = 5;
    EXPECT_EQ(formatHours(entry), u"12.05");
    EXPECT_EQ(hoursOf(entry), 12.05);
    EXPECT_EQ(breakHoursOf(entry), 0.05);
}

struct ListCase {
    std::uint16_t index;
    std::size_t size;
    std::u16string first, third;
};

TEST(DurationList, HasEveryStepUpToTwelveHours) {
    const ListCase cases[] = {
        {0, 72, u"0.17", u"0.50"},  {1, 48, u"0.25", u"0.75"}, {2, 36, u"0.33", u"1.00"},     {3, 24, u"0.50", u"1.50"},
        {4, 120, u"0.10", u"0.30"}, {5, 24, u"0.50", u"1.50"}, {65535, 24, u"0.50", u"1.50"},
    };
    for (const auto& c : cases) {
        const auto texts = durationList(c.index);
        ASSERT_EQ(texts.size(), c.size) << c.index;
        EXPECT_EQ(texts[0], c.first) << c.index;
        EXPECT_EQ(texts[2], c.third) << c.index;
        EXPECT_EQ(texts.back(), u"12.00") << c.index;
    }
}

} // namespace
