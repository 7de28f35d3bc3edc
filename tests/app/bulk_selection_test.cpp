#include "app/bulk_selection.h"

#include "platform/icu/icu_locale.h"
#include "platform/utf.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

constexpr platform::SystemTime november(std::uint16_t day) {
    return {.year = 2026, .month = 11, .day = day};
}

platform::FileTime at(const platform::SystemTime& time) {
    return platform::toFileTime(time).value();
}

bool covers(const store::DateRange& range, platform::FileTime instant) {
    return (!range.after || instant > *range.after) && (!range.last || instant <= *range.last);
}

class BulkSelectionTest : public testing::Test {
protected:
    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
};

TEST_F(BulkSelectionTest, CoversTheDaysOfTheCriteriaToTheirLastTick) {
    EntryFilter criteria;
    criteria.rangeStart = november(2);
    criteria.rangeEnd = november(3);
    criteria.client = u"Acme";
    const auto selection = selectionOf(criteria, *locale_);
    const platform::FileTime first = at(november(2));
    const platform::FileTime next = at(november(4));
    EXPECT_TRUE(covers(selection.range, first));
    EXPECT_FALSE(covers(selection.range, platform::FileTime{first.ticks - 1}));
    EXPECT_TRUE(covers(selection.range, platform::FileTime{next.ticks - 1}));
    EXPECT_FALSE(covers(selection.range, next));
    EXPECT_TRUE(selection.accepts({.date = first, .client = u"Acme"}));
    EXPECT_FALSE(selection.accepts({.date = first, .client = u"acme"}));
}

// The view's period and the range of its filter both bound what is shown.
TEST_F(BulkSelectionTest, OfAViewIsWhatPeriodAndFilterBothShow) {
    EntryFilter filter;
    filter.rangeStart = november(17);
    filter.rangeEnd = november(30);
    filter.showUnpaidOnly();
    const auto week = Period::around(PeriodKind::week, november(16), platform::WeekStart::monday);
    const auto selection = selectionOf(*week, filter, *locale_);
    const auto selects = [&](std::uint16_t day, store::EntryStatus status) {
        const store::TimeEntry entry{.date = at(november(day)), .status = status};
        return covers(selection.range, entry.date) && selection.accepts(entry);
    };
    EXPECT_FALSE(selects(16, store::EntryStatus::billable));
    EXPECT_TRUE(selects(17, store::EntryStatus::billable));
    EXPECT_TRUE(selects(22, store::EntryStatus::billed));
    EXPECT_FALSE(selects(22, store::EntryStatus::paid));
    EXPECT_FALSE(selects(23, store::EntryStatus::billable));
}

// A change reads of an entry only what the selection says that it looks at; what is left out would count as empty.
TEST_F(BulkSelectionTest, LooksAtEveryFieldThatAFilterTests) {
    struct Case {
        const char* name;
        void (*ask)(EntryFilter&);
    };
    const Case cases[] = {
        {"client", [](EntryFilter& f) { f.client = u"c"; }},
        {"project", [](EntryFilter& f) { f.project = u"p"; }},
        {"phase", [](EntryFilter& f) { f.phase = u"ph"; }},
        {"task", [](EntryFilter& f) { f.task = u"t"; }},
        {"bill to", [](EntryFilter& f) { f.billTo = u"b"; }},
        {"currency", [](EntryFilter& f) { f.currency = u"EUR"; }},
        {"custom 1", [](EntryFilter& f) { f.custom1 = u"1"; }},
        {"custom 2", [](EntryFilter& f) { f.custom2 = u"2"; }},
        {"custom 3", [](EntryFilter& f) { f.custom3 = u"3"; }},
        {"rate type", [](EntryFilter& f) { f.rateType = 2; }},
        {"status", [](EntryFilter& f) { f.showNonBillable = false; }},
        {"range",
         [](EntryFilter& f) {
             f.rangeStart = november(2);
             f.rangeEnd = november(3);
         }},
    };
    platform::PropertyBuffer whole;
    whole.reset(100, 0);
    const std::pair<std::uint16_t, const char*> texts[] = {{1002, "c"},   {1003, "p"}, {1004, "ph"},
                                                           {1005, "t"},   {1014, "b"}, {1015, "1"},
                                                           {1007, "EUR"}, {1016, "2"}, {1017, "3"}};
    for (const auto& [field, text] : texts)
        whole.addText({field, platform::ValueType::text}, text);
    whole.addNumber({1001, platform::ValueType::fileTime}, at(november(3)).ticks);
    whole.addNumber({1018, platform::ValueType::ui2}, 2);
    whole.addNumber({1019, platform::ValueType::ui2}, 1);
    for (const Case& c : cases) {
        EntryFilter filter;
        c.ask(filter);
        const auto selection = selectionOf(filter, *locale_);
        platform::PropertyBuffer part;
        part.reset(100, 0);
        for (const platform::PropertyValue& value : whole.values()) {
            if (std::ranges::find(selection.looksAt, value.id) == selection.looksAt.end())
                continue;
            if (value.id.type() == platform::ValueType::text)
                part.addText(value.id, platform::toUtf8(value.text));
            else
                part.addNumber(value.id, value.number);
        }
        store::TimeEntry entry;
        store::readTimeEntry(store::RecordId{1}, part, entry);
        EXPECT_TRUE(selection.accepts(entry)) << c.name;
        store::readTimeEntry(store::RecordId{1}, platform::PropertyBuffer(), entry);
        EXPECT_FALSE(selection.accepts(entry)) << c.name;
    }
}

TEST_F(BulkSelectionTest, NewCriteriaSpanThePeriod) {
    struct Case {
        BulkKind kind;
        std::uint32_t flags;
    };
    const auto month = Period::around(PeriodKind::month, november(16), platform::WeekStart::monday);
    for (const Case& testCase :
         {Case{BulkKind::markBilled, 0x1}, Case{BulkKind::markPaid, 0x21}, Case{BulkKind::remove, 0x35}}) {
        const EntryFilter criteria = newCriteria(*month, testCase.kind);
        EXPECT_EQ(criteria.rangeStart.day, 1);
        EXPECT_EQ(criteria.rangeEnd.day, 30);
        EXPECT_EQ(criteria.rangeEnd.hour, 0);
        EXPECT_EQ(criteria.statusFlags(), testCase.flags);
    }
}

TEST_F(BulkSelectionTest, ARangeEndsNotBeforeItBegins) {
    EXPECT_TRUE(rangeIsInOrder(november(5), november(5)));
    EXPECT_TRUE(rangeIsInOrder({.year = 2025, .month = 12, .day = 31}, november(1)));
    EXPECT_FALSE(rangeIsInOrder(november(6), november(5)));
    EXPECT_FALSE(rangeIsInOrder({.year = 2026, .month = 12, .day = 1}, november(30)));
}

TEST_F(BulkSelectionTest, PaidTodayIsPaidNow) {
    const platform::SystemTime now{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16, .hour = 9, .minute = 5};
    EXPECT_EQ(paidInstant(november(16), now), at(now));
    EXPECT_EQ(paidInstant(november(10), now), at(november(10)));
}

} // namespace
} // namespace hourwright::app
