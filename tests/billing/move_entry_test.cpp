#include "billing/move_entry.h"

#include "billing/billing_fixture.h"
#include "billing/duration.h"
#include "platform/calendar.h"
#include "support/print_system_time.h"

namespace hourwright::billing {

namespace {

using platform::SystemTime;
using store::TimeEntry;

constexpr SystemTime at(std::uint16_t hour, std::uint16_t minute, std::uint16_t day = 16) {
    return {.year = 2026, .month = 11, .day = day, .hour = hour, .minute = minute};
}

TimeEntry entryAt(std::uint16_t hour, std::uint16_t minute, std::int32_t duration, std::int32_t breakTime) {
    TimeEntry entry;
    entry.task = u"Review";
    store::setDateAndStart(entry, at(hour, minute));
    entry.duration = duration;
    entry.breakTime = breakTime;
    return entry;
}

TEST(MoveEntry, keepsDurationBreakAndTheMarkOfAStart) {
    TimeEntry entry = entryAt(9, 0, 83, 17);
    TimeEntry expected = entry;
    ASSERT_TRUE(store::setDateAndStart(expected, at(23, 55, 18)));
    EXPECT_EQ(placeEntry({.day = at(7, 7, 18), .start = at(23, 55, 3)}, {.granularityOn = true}, entry), std::nullopt);
    EXPECT_EQ(entry, expected);
}

TEST(MoveEntry, anEntryWithoutAStartStaysOneOnAnotherDay) {
    TimeEntry entry = entryAt(9, 0, 100, 0);
    ASSERT_TRUE(store::setDateWithoutStart(entry, at(0, 0)));
    ASSERT_EQ(placeEntry({.day = at(5, 5, 30)}, {}, entry), std::nullopt);
    EXPECT_FALSE(store::hasStart(entry));
    EXPECT_EQ(entry.date, test::november(30));
}

TEST(MoveEntry, theEndShownFollowsAsFarAsTheRulesLetIt) {
    struct Row {
        SystemTime start, end;
        std::int32_t breakTime;
        TimeRules rules;
        std::int32_t duration;
        SystemTime shown;
    };
    const TimeRules quarters{.granularityOn = true, .granularityMinutes = 15};
    const TimeRules tens{.granularityOn = true, .granularityMinutes = 10};
    const Row rows[] = {
        {at(9, 0), at(10, 30), 0, {}, 150, at(10, 30)},
        {at(9, 0), at(9, 5), 0, {}, 8, at(9, 4)}, // cut off
        {at(9, 0), at(9, 10), 0, {}, 16, at(9, 9)},
        {at(9, 0), at(9, 10), 0, {.preciseMinutes = true}, 17, at(9, 10)},
        {at(9, 0), at(9, 20), 0, {}, 33, at(9, 20)},
        {at(9, 0), at(9, 20), 0, {.preciseMinutes = true}, 34, at(9, 20)},
        {at(9, 0), at(10, 20), 0, {}, 133, at(10, 19)}, // 79 minutes
        {at(9, 0), at(10, 20), 0, {.preciseMinutes = true}, 134, at(10, 20)},
        {at(9, 0), at(9, 5), 0, quarters, 25, at(9, 15)}, // raised
        {at(9, 0), at(9, 20), 0, tens, 33, at(9, 20)},
        {at(9, 0), at(9, 10), 0, tens, 16, at(9, 9)}, // the granularity knows no 0.17
        {at(9, 0), at(10, 0), 17, {}, 83, at(10, 0)},
        {at(9, 0), at(13, 0), 50, {}, 350, at(13, 0)},
        {at(9, 0), at(9, 30), 50, {}, 0, at(9, 30)},
        {at(22, 30), at(1, 15, 17), 0, {}, 275, at(1, 15, 17)},
        {at(22, 30), at(0, 0, 17), 0, {}, 150, at(0, 0, 17)},
        {at(9, 0), at(9, 0), 0, {}, 0, at(9, 0)},
    };
    for (const Row& row : rows) {
        TimeEntry entry = entryAt(7, 0, 999, row.breakTime);
        ASSERT_EQ(placeEntry({.day = row.start, .start = row.start, .end = row.end}, row.rules, entry), std::nullopt);
        EXPECT_EQ(entry.duration, row.duration) << row.end.hour << ':' << row.end.minute << " break " << row.breakTime;
        EXPECT_EQ(test::instant(endTime(row.start, entry)), test::instant(row.shown)) << row.duration;
        EXPECT_TRUE(store::hasStart(entry));
    }
}

TEST(MoveEntry, aRefusalLeavesTheEntry) {
    const struct {
        const char* name;
        EntryPlace place;
        std::int32_t breakTime;
        DraftField field;
    } rows[] = {
        {"end before start", {at(0, 0), at(9, 30), at(9, 10)}, 0, DraftField::end},
        {"end hours before start", {at(0, 0), at(9, 30), at(8, 0)}, 0, DraftField::end},
        {"break longer than the time", {at(0, 0), at(9, 0), at(9, 30)}, 75, DraftField::end},
        {"longer than the field",
         {at(0, 0), at(9, 0), SystemTime{.year = 2026, .month = 12, .day = 20}},
         0,
         DraftField::end},
        {"end without a start", {at(0, 0), std::nullopt, at(9, 0)}, 0, DraftField::end},
        {"no such day",
         {SystemTime{.year = 2026, .month = 11, .day = 31}, at(9, 0), std::nullopt},
         0,
         DraftField::date},
    };
    for (const auto& row : rows) {
        TimeEntry entry = entryAt(9, 30, 100, row.breakTime);
        const TimeEntry before = entry;
        EXPECT_EQ(placeEntry(row.place, {}, entry), cannotHold(row.field)) << row.name;
        EXPECT_EQ(entry, before) << row.name;
    }
}

class MoveStoredEntry : public test::BillingFixture {};

TEST_F(MoveStoredEntry, rewritesWhatIsInTheStoreNow) {
    const auto id = insert(entryAt(9, 0, 100, 0));
    change([&](auto& transaction) {
        EXPECT_TRUE(
            placeStoredEntry(transaction, stores(), id, {.day = at(0, 0), .start = at(14, 0)}, {}, test::november(20)));
    });
    ASSERT_EQ(allEntries().size(), 1U);
    const TimeEntry moved = allEntries().front();
    EXPECT_EQ(moved.date.ticks, test::instant(at(14, 0)).ticks + platform::ticksPerSecond);
    EXPECT_EQ(moved.modified, test::november(20));
    EXPECT_EQ(moved.task, u"Review");
    EXPECT_EQ(moved.flags, store::flagsChanged);
}

TEST_F(MoveStoredEntry, failsForAnEntryThatIsGoneAndForARefusal) {
    const auto id = insert(entryAt(9, 0, 100, 75));
    const auto before = allEntries();
    change([&](auto& transaction) {
        const EntryPlace tooShort{.day = at(0, 0), .start = at(9, 0), .end = at(9, 15)};
        EXPECT_FALSE(placeStoredEntry(transaction, stores(), id, tooShort, {}, test::november(20)));
        EXPECT_EQ(stores().entries().lastError(), platform::PlatformError::invalidParameter);
        EXPECT_FALSE(placeStoredEntry(transaction, stores(), static_cast<store::RecordId>(4711), tooShort, {}, {}));
        EXPECT_EQ(stores().entries().lastError(), platform::PlatformError::noMoreItems);
    });
    EXPECT_EQ(allEntries(), before);
}

} // namespace

} // namespace hourwright::billing
