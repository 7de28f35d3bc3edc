#include "billing/copy_entry.h"

#include "support/store_fixture.h"

namespace hourwright::billing {

namespace {

using platform::FileTime;
using platform::PlatformError;
using platform::SystemTime;
using platform::WeekStart;
using store::TimeEntry;

// November 2026 begins on a Sunday: the 16th is a Monday, the 20th a Friday, the 21st a Saturday.
constexpr SystemTime november(std::uint16_t day) {
    return {.year = 2026, .month = 11, .day = day};
}

constexpr FileTime now{4711};

TimeEntry entryOf(std::uint16_t day) {
    TimeEntry entry;
    SystemTime start = november(day);
    start.hour = 9;
    start.minute = 30;
    store::setDateAndStart(entry, start);
    entry.id = store::RecordId{12};
    entry.client = u"Acme";
    entry.task = u"Review";
    entry.duration = 110;
    entry.status = store::EntryStatus::paid;
    entry.note = {std::byte{5}};
    entry.modified = FileTime{1};
    entry.flags = 7;
    return entry;
}

// The days of November on which copies fall; days of later months go on from 31.
std::vector<int> daysOf(const EntryCopies& copies) {
    const std::uint64_t first = platform::toFileTime(november(1))->ticks / platform::ticksPerDay;
    std::vector<int> days;
    for (const FileTime date : copies.dates)
        days.push_back(static_cast<int>(date.ticks / platform::ticksPerDay - first) + 1);
    return days;
}

struct DaysRow {
    const char* name;
    std::uint16_t entryDay;
    CopyOrder order;
    WeekStart weekStart;
    std::vector<int> days;
};

TEST(CopyEntry, choosesTheDays) {
    using enum CopyTarget;
    constexpr CopyOrder workDays{.target = restOfWeek};
    constexpr CopyOrder wholeWeek{.target = restOfWeek, .includeWeekend = true};
    const auto until = [](std::uint16_t day, bool weekend) {
        return CopyOrder{.target = untilDate, .date = november(day), .includeWeekend = weekend};
    };
    const DaysRow rows[] = {
        {"one day", 18, {.date = november(3)}, WeekStart::sunday, {3}},
        {"the entry's own day", 18, {.date = november(18)}, WeekStart::sunday, {18}},
        {"a Saturday is no exception", 18, {.date = november(21)}, WeekStart::sunday, {21}},
        {"Wednesday, weekend, Sunday first", 18, wholeWeek, WeekStart::sunday, {19, 20, 21}},
        {"Wednesday, weekend, Monday first", 18, wholeWeek, WeekStart::monday, {19, 20, 21, 22}},
        {"Wednesday, no weekend", 18, workDays, WeekStart::monday, {19, 20}},
        {"Friday, no weekend", 20, workDays, WeekStart::sunday, {}},
        {"Saturday, weekend, Sunday first", 21, wholeWeek, WeekStart::sunday, {}},
        {"Saturday, weekend, Monday first", 21, wholeWeek, WeekStart::monday, {22}},
        {"Sunday, weekend, Monday first", 22, wholeWeek, WeekStart::monday, {}},
        // Only Saturday ends the days without the weekend, so a copy falls on the Sunday.
        {"Saturday, no weekend", 14, workDays, WeekStart::monday, {15, 16, 17, 18, 19, 20}},
        {"Friday, three weeks",
         6,
         until(27, false),
         WeekStart::sunday,
         {9, 10, 11, 12, 13, 16, 17, 18, 19, 20, 23, 24, 25, 26, 27}},
        {"until, weekend", 19, until(23, true), WeekStart::sunday, {20, 21, 22, 23}},
        {"until the day itself", 18, until(18, true), WeekStart::sunday, {}},
        {"until an earlier day", 18, until(2, true), WeekStart::sunday, {}},
    };
    for (const DaysRow& row : rows) {
        EntryCopies copies;
        ASSERT_EQ(makeCopies(entryOf(row.entryDay), row.order, {{}, row.weekStart, now}, copies), std::nullopt);
        EXPECT_EQ(daysOf(copies), row.days) << row.name;
    }
}

TEST(CopyEntry, keepsEverythingButDateDurationAndRecord) {
    const TimeEntry entry = entryOf(18);
    EntryCopies copies;
    const CopyOrder order{.date = november(20), .duration = u"1.1"};
    ASSERT_EQ(makeCopies(entry, order, {{.granularityOn = true}, WeekStart::sunday, now}, copies), std::nullopt);
    TimeEntry expected = entry;
    expected.id = store::RecordId::none;
    expected.duration = 125;
    expected.modified = now;
    expected.flags = 0;
    EXPECT_EQ(copies.entry, expected);
    const auto date =
        platform::toFileTime({.year = 2026, .month = 11, .day = 20, .hour = 9, .minute = 30, .second = 1});
    EXPECT_EQ(copies.dates, std::vector{*date});

    ASSERT_EQ(makeCopies(entry, {.date = november(20)}, {{.granularityOn = true}, WeekStart::sunday, now}, copies),
              std::nullopt);
    EXPECT_EQ(copies.entry.duration, 110) << "no duration was typed";
}

TEST(CopyEntry, isRefused) {
    using enum CopyTarget;
    constexpr auto failed = PlatformError::invalidParameter;
    struct Row {
        const char* name;
        CopyOrder order;
        CopyRefusal refusal;
    };
    const Row rows[] = {
        {"letters, looked at before the date",
         {.date = november(31), .duration = u"1h"},
         {CopyField::duration, resources::StringId::numericOnly}},
        {"duration",
         {.date = november(1), .duration = u"656"},
         {CopyField::duration, resources::StringId::error, failed}},
        {"date", {.date = november(31)}, {CopyField::date, resources::StringId::error, failed}},
        {"3661 days",
         {.target = untilDate, .date = {.year = 2036, .month = 11, .day = 26}},
         {CopyField::endDate, resources::StringId::error, failed}},
    };
    for (const Row& row : rows) {
        EntryCopies copies;
        EXPECT_EQ(makeCopies(entryOf(18), row.order, {}, copies), row.refusal) << row.name;
        EXPECT_TRUE(copies.dates.empty()) << row.name;
    }
    EntryCopies copies;
    const CopyOrder tenYears{
        .target = untilDate, .date = {.year = 2036, .month = 11, .day = 25}, .includeWeekend = true};
    ASSERT_EQ(makeCopies(entryOf(18), tenYears, {}, copies), std::nullopt);
    EXPECT_EQ(copies.dates.size(), 3660U);
}

TEST(CopyEntry, endsWithTheCalendar) {
    TimeEntry entry;
    const SystemTime last{.year = 30827, .month = 12, .day = 31}; // a Friday
    store::setDateWithoutStart(entry, {.year = 30827, .month = 12, .day = 29});
    EntryCopies copies;
    ASSERT_EQ(makeCopies(entry, {.target = CopyTarget::untilDate, .date = last, .includeWeekend = true}, {}, copies),
              std::nullopt);
    EXPECT_EQ(copies.dates.size(), 2U);
    EXPECT_EQ(copies.dates.back(), platform::toFileTime(last));
    ASSERT_EQ(makeCopies(entry, {.target = CopyTarget::restOfWeek, .includeWeekend = true},
                         {{}, WeekStart::monday, now}, copies),
              std::nullopt);
    EXPECT_EQ(copies.dates.size(), 2U);
}

class CopyEntryStore : public test::StoreFixture {};

TEST_F(CopyEntryStore, addsNewRecords) {
    TimeEntry entry = entryOf(18);
    entry.id = store::RecordId::none;
    std::optional<std::vector<store::RecordId>> ids;
    change([&](platform::Transaction& transaction) {
        ASSERT_TRUE(store::insertTimeEntry(transaction, stores().entries(), entry, 3));
        EntryCopies copies;
        ASSERT_EQ(makeCopies(entry, {.target = CopyTarget::untilDate, .date = november(20)}, {{}, {}, now}, copies),
                  std::nullopt);
        ids = saveCopies(transaction, stores(), copies);
    });
    ASSERT_TRUE(ids);
    ASSERT_EQ(ids->size(), 2U);
    TimeEntry expected = entry;
    expected.modified = now;
    expected.flags = 0;
    for (const auto& [id, day] : {std::pair{ids->front(), 19}, std::pair{ids->back(), 20}}) {
        SystemTime start = november(static_cast<std::uint16_t>(day));
        start.hour = 9;
        start.minute = 30;
        store::setDateAndStart(expected, start);
        expected.id = id;
        TimeEntry copy;
        ASSERT_EQ(stores().entries().seek(platform::Seek::toId(id)), id);
        ASSERT_EQ(store::readTimeEntry(stores().entries(), copy), store::ReadResult::ok);
        EXPECT_EQ(copy, expected) << day;
    }
    EXPECT_EQ(stores().entries().recordCount(), 3U);
}

} // namespace

} // namespace hourwright::billing
