#include "app/entry_columns.h"

#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>

namespace hourwright::app {

namespace {

using store::TimeEntry;

TimeEntry sample() {
    TimeEntry entry;
    entry.date = *platform::toFileTime({.year = 2026, .month = 11, .day = 16, .hour = 14, .minute = 5, .second = 1});
    entry.client = u"client";
    entry.project = u"project";
    entry.phase = u"phase";
    entry.task = u"task";
    entry.duration = 150;
    entry.breakTime = 50;
    entry.status = store::EntryStatus::billed;
    entry.currency = u"EUR";
    entry.rate = 123450;
    entry.rateType = store::RateType::overtime;
    entry.billTo = u"contact";
    entry.custom1 = u"one";
    entry.custom2 = u"two";
    entry.custom3 = u"three";
    return entry;
}

std::vector<std::u16string> cells(const TimeEntry& entry) {
    const auto locale = platform::makeIcuLocale("de_DE");
    std::vector<std::u16string> texts;
    for (std::size_t column = 0; column < entryColumns().size(); ++column)
        texts.push_back(cellText(entry, column, *locale, {}));
    return texts;
}

TEST(EntryColumns, showABillableEntry) {
    const std::vector<std::u16string> expected{
        u"16.11.26", u"client", u"project", u"phase", u"task", u"1.50",     u"14:05",         u"contact",
        u"one",      u"two",    u"three",   u"15:35", u"EUR",  u"1.234,50", u"Overtime Rate", u"1.851,75"};
    EXPECT_EQ(cells(sample()), expected);
}

TEST(EntryColumns, areEmptyWhereNothingIsToBeShown) {
    TimeEntry entry = sample();
    entry.status = store::EntryStatus::nonBillable;
    ASSERT_TRUE(store::setDateWithoutStart(entry, {.year = 2026, .month = 11, .day = 16}));
    const auto texts = cells(entry);
    for (const std::size_t column : {6U, 11U, 12U, 13U, 14U, 15U})
        EXPECT_EQ(texts[column], u"") << column;
    EXPECT_EQ(texts[5], u"1.50");
}

TEST(EntryColumns, endLeavesTheBreakOutAndGoesPastMidnight) {
    struct Case {
        std::uint16_t hour;
        std::int32_t duration;
        const char16_t* end;
    };
    const Case cases[] = {{9, 0, u"09:05"}, {9, 33, u"09:25"}, {9, 133, u"10:24"}, {23, 100, u"00:05"}};
    for (const Case& c : cases) {
        TimeEntry entry = sample();
        entry.duration = c.duration;
        ASSERT_TRUE(store::setDateAndStart(entry, {.year = 2026, .month = 11, .day = 16, .hour = c.hour, .minute = 5}));
        EXPECT_EQ(cells(entry)[11], c.end) << c.hour << ' ' << c.duration;
    }
}

TEST(EntryColumns, amountFollowsTheRules) {
    const auto locale = platform::makeIcuLocale("en_US");
    TimeEntry entry = sample();
    entry.duration = 33;
    entry.rate = 3000;
    EXPECT_EQ(cellText(entry, 15, *locale, {}), u"9.90");
    EXPECT_EQ(cellText(entry, 15, *locale, {.preciseMinutes = true}), u"10.00");
    entry.rateType = store::RateType::fixed;
    EXPECT_EQ(cellText(entry, 15, *locale, {}), u"30.00");
}

TEST(EntryColumns, rowImageShowsStatusAndNote) {
    const std::vector<std::byte> note{std::byte{1}};
    EXPECT_TRUE(getRowImage({}) == (RowImage{1, false}));
    EXPECT_TRUE(getRowImage({.status = store::EntryStatus::billable, .note = note}) == (RowImage{2, true}));
    EXPECT_TRUE(getRowImage({.status = store::EntryStatus::billed}) == (RowImage{3, false}));
    EXPECT_TRUE(getRowImage({.status = store::EntryStatus::paid}) == (RowImage{4, false}));
    EXPECT_TRUE(getRowImage({.status = store::EntryStatus{9}}) == (RowImage{1, false}));
}

TEST(EntryColumns, knowNoOtherColumnAndNoOtherRateType) {
    const auto locale = platform::makeIcuLocale("de_DE");
    TimeEntry entry = sample();
    EXPECT_EQ(cellText(entry, 16, *locale, {}), u"");
    entry.rateType = store::RateType{8};
    EXPECT_EQ(cellText(entry, 14, *locale, {}), u"");
    entry.status = store::EntryStatus{4};
    EXPECT_EQ(cellText(entry, 12, *locale, {}), u"") << "no status is not billable";
}

} // namespace

} // namespace hourwright::app
