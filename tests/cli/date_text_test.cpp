#include "cli/date_text.h"
#include "support/print_system_time.h"

#include <gtest/gtest.h>
#include <string>

namespace hourwright::cli {

namespace {

using platform::SystemTime;

constexpr SystemTime today{
    .year = 2026, .month = 11, .dayOfWeek = 1, .day = 16, .hour = 23, .minute = 59, .second = 58, .milliseconds = 7};

TEST(DateText, meansADay) {
    struct Row {
        std::string_view text;
        SystemTime day;
    };
    constexpr Row rows[] = {
        {"2026-11-16", {.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16}},
        {"2024-02-29", {.year = 2024, .month = 2, .dayOfWeek = 4, .day = 29}},
        {"1601-01-01", {.year = 1601, .month = 1, .dayOfWeek = 1, .day = 1}},
        {"30827-12-31", {.year = 30827, .month = 12, .dayOfWeek = 5, .day = 31}},
        {"today", {.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16}},
        {"yesterday", {.year = 2026, .month = 11, .dayOfWeek = 0, .day = 15}},
        {"tomorrow", {.year = 2026, .month = 11, .dayOfWeek = 2, .day = 17}},
        {"+15", {.year = 2026, .month = 12, .dayOfWeek = 2, .day = 1}},
        {"-16", {.year = 2026, .month = 10, .dayOfWeek = 6, .day = 31}},
        {"-0", {.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16}},
    };
    for (const Row& row : rows) {
        const auto parsed = parseDate(row.text);
        ASSERT_TRUE(parsed) << row.text;
        const auto day = resolveDate(*parsed, today);
        ASSERT_TRUE(day) << row.text;
        EXPECT_EQ(*day, row.day) << row.text;
    }
}

TEST(DateText, isRefusedWhenItIsNone) {
    for (const std::string_view text :
         {"", "2026-11-31", "2026-02-29", "2026-13-01", "2026-00-10", "2026-1-1", "26-11-16", "2026-11-16 ", "+", "-",
          "+1d", "Today", "2026/11/16", "002026-11-16", "+-1", "2026-11-1x"})
        EXPECT_FALSE(parseDate(text)) << text;
}

TEST(DateText, beyondTheCalendarIsADateButNoDay) {
    for (const std::string_view text :
         {"1600-12-31", "0000-01-01", "30828-01-01", "-200000", "+99999999999999999999", "+11000000"}) {
        const auto parsed = parseDate(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_FALSE(resolveDate(*parsed, today)) << text;
    }
}

TEST(DateText, readsTimes) {
    EXPECT_EQ(parseTime("00:00"), SystemTime{});
    EXPECT_EQ(parseTime("23:59"), (SystemTime{.hour = 23, .minute = 59}));
    for (const std::string_view text : {"", "9:00", "24:00", "12:60", "12:00:00", "12.00", "-1:00", "12:0"})
        EXPECT_FALSE(parseTime(text)) << text;
}

TEST(DateText, readsAndWritesInstants) {
    const SystemTime instant{.year = 2026, .month = 1, .dayOfWeek = 5, .day = 2, .hour = 3, .minute = 4, .second = 5};
    EXPECT_EQ(parseDateTime("2026-01-02 03:04:05"), instant);
    EXPECT_EQ(dateTimeText(instant), "2026-01-02 03:04:05");
    EXPECT_EQ(parseDateTime("2026-01-02 03:04:05.006")->milliseconds, 6);
    for (const std::string_view text : {"2026-01-02", "2026-01-02 03:04", "2026-01-02T03:04:05", "1600-01-02 03:04:05",
                                        "2026-01-02 03:04:60", "2026-01-02 03:04:05.6", "2026-01-02 03:04:05 "})
        EXPECT_FALSE(parseDateTime(text)) << text;
}

} // namespace

} // namespace hourwright::cli
