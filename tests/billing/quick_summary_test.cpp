#include "billing/quick_summary.h"

#include "billing/summary_breakdown.h"
#include "billing_fixture.h"
#include "platform/icu/icu_locale.h"
#include "print_summary.h"

namespace hourwright::billing {
namespace {

using store::EntryStatus;
using store::TimeEntry;
using test::november;

class QuickSummaryTest : public test::BillingFixture {
protected:
    void SetUp() override {
        add(3, u"Zebra", u"", u"", 100, EntryStatus::billable);
        add(4, u"acme", u"Weir", u"Dig", 200, EntryStatus::billed);
        add(5, u"acme", u"Dam", u"Dig", 50, EntryStatus::paid);
        add(5, u"acme", u"Dam", u"Fill", 50, EntryStatus::nonBillable);
        add(6, u"acme", u"Dam", u"Dig", 100, EntryStatus::billable);
    }
    void add(std::uint16_t day, const char16_t* client, const char16_t* project, const char16_t* task,
             std::int32_t duration, EntryStatus status) {
        insert({.date = november(day),
                .client = client,
                .project = project,
                .task = task,
                .duration = duration,
                .status = status,
                .rate = 1000});
    }
    static EntrySelection selected(std::uint16_t first, std::uint16_t last) {
        return {.range = test::novemberDays(first, last),
                .accepts = [](const TimeEntry& entry) { return entry.client != u"Zebra"; }};
    }

    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
};

TEST_F(QuickSummaryTest, SumsUpWhatTheViewShows) {
    EXPECT_EQ(quickSummary(stores().entries(), {}, {}), (QuickSummary{.items = 5, .hours = 5.0, .amount = 45.0}));
    EXPECT_EQ(quickSummary(stores().entries(), selected(3, 5), {}),
              (QuickSummary{.items = 3, .hours = 3.0, .amount = 25.0}));
    const auto none = quickSummary(stores().entries(), selected(1, 3), {});
    const std::vector<SummaryRow> expected = {{u"Period Type:", u"Day"},
                                              {u"Period:", u"11/3/2026"},
                                              {u"Number of Items:", u"0"},
                                              {u"Hours:", u"0.00h"},
                                              {u"Amount:", u"0.00"}};
    EXPECT_EQ(quickSummaryRows(none.value(), u"Day", u"11/3/2026"), expected);
}

TEST_F(QuickSummaryTest, BreaksDownByClientProjectAndTask) {
    const auto breakdown = breakDown(stores().entries(), {}, {}, *locale_);
    ASSERT_TRUE(breakdown);
    EXPECT_EQ(breakdown->hours, 5.0);
    EXPECT_EQ(breakdown->amounts, (Amounts{{u"", 45.0}}));
    const auto money = [](double amount) { return Amounts{{u"", amount}}; };
    const std::vector<BreakdownRow> expected = {
        {u"acme", 0, 4.0, money(35.0)},  {u"Dam", 1, 2.0, money(15.0)},  {u"Dig", 2, 1.5, money(15.0)},
        {u"Fill", 2, 0.5, {}},           {u"Weir", 1, 2.0, money(20.0)}, {u"Dig", 2, 2.0, money(20.0)},
        {u"Zebra", 0, 1.0, money(10.0)}, {u"", 1, 1.0, money(10.0)},     {u"", 2, 1.0, money(10.0)},
    };
    EXPECT_EQ(breakdown->rows, expected);
    EXPECT_TRUE(breakDown(stores().entries(), selected(1, 3), {}, *locale_)->rows.empty());
}

TEST_F(QuickSummaryTest, NeverAddsUpDifferentCurrencies) {
    insert({.date = november(7),
            .client = u"Zebra",
            .duration = 100,
            .status = EntryStatus::billable,
            .currency = u"EUR",
            .rate = 700});
    const auto breakdown = breakDown(stores().entries(), {}, {}, *locale_);
    ASSERT_TRUE(breakdown);
    const Amounts all{{u"", 45.0}, {u"EUR", 7.0}};
    EXPECT_EQ(breakdown->amounts, all);
    EXPECT_EQ(breakdown->rows[6].amounts, (Amounts{{u"", 10.0}, {u"EUR", 7.0}})) << "Zebra";
    EXPECT_EQ(partOf(breakdown->rows[0].amounts, all), 35.0 / 45.0) << "of its currency";
    EXPECT_EQ(partOf(breakdown->rows[6].amounts, all), std::nullopt);
    EXPECT_EQ(partOf(Amounts{}, all), 0.0);
}

TEST(PercentText, HasOneDecimalAndNoPartOfNothing) {
    struct PercentCase {
        double part;
        double whole;
        const char16_t* text;
    };
    const PercentCase cases[] = {
        {1.0, 3.0, u"33.3%"}, {2.0, 3.0, u"66.7%"}, {5.0, 5.0, u"100.0%"}, {0.0, 5.0, u"0.0%"}, {0.0, 0.0, u"0.0%"},
    };
    for (const PercentCase& c : cases)
        EXPECT_EQ(percentText(partOf(c.part, c.whole)), c.text) << c.part << " of " << c.whole;
}

} // namespace
} // namespace hourwright::billing
