#include "billing/summary.h"

#include "billing_fixture.h"
#include "platform/icu/icu_locale.h"
#include "print_summary.h"
#include "store/fields.h"

namespace hourwright::billing {
namespace {

namespace field = store::field;
using platform::PropertyValue;
using store::EntryStatus;
using store::RateType;
using store::TimeEntry;
using test::november;

class SummaryTest : public test::BillingFixture {
protected:
    Summary summaryOf(const SummaryScope& scope, const TimeRules& rules = {}) {
        const auto summary = summarize(stores().entries(), scope, rules);
        EXPECT_TRUE(summary);
        return summary.value_or(Summary{});
    }
    std::vector<SummaryRow> rowsOf(const SummaryScope& scope) { return summaryRows(summaryOf(scope), scope, *locale_); }

    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
};

TEST_F(SummaryTest, UnknownClientHasAllRowsWithZeros) {
    insert({.date = november(1), .client = u"Acme", .duration = 100, .rate = 1000});
    const std::vector<SummaryRow> expected = {
        {u"Client:", u"Nobody"},
        {u"Project:", u"Dam"},
        {u"Task:", u"Dig"},
        {},
        {u"First Entry Date:", u""},
        {u"Last Entry Date:", u""},
        {},
        {u"Hours:", u"0.00h"},
        {u"Billable", u"0.00h", 1},
        {u"Billed", u"0.00h", 1},
        {u"Paid", u"0.00h", 1},
        {u"Non Billable", u"0.00h", 1},
        {},
        {u"Amount:", u"0.00"},
        {u"Unpaid", u"0.00", 1},
        {u"Billed", u"0.00", 1},
        {u"Paid", u"0.00", 1},
    };
    EXPECT_EQ(rowsOf({u"Nobody", u"Dam", u"Dig"}), expected);
}

TEST_F(SummaryTest, BilledFixedRateCountsAsUnpaidAndAsBilled) {
    insert({.date = november(9),
            .client = u"Acme",
            .duration = 350,
            .status = EntryStatus::billed,
            .rate = 25000,
            .rateType = RateType::fixed});
    const std::vector<SummaryRow> expected = {
        {u"Client:", u"Acme"},
        {},
        {u"First Entry Date:", u"11/9/26"},
        {u"Last Entry Date:", u"11/9/26"},
        {},
        {u"Hours:", u"3.50h"},
        {u"Billable", u"3.50h", 1},
        {u"Billed", u"3.50h", 1},
        {u"Paid", u"0.00h", 1},
        {u"Non Billable", u"0.00h", 1},
        {},
        {u"Amount:", u"250.00"},
        {u"Unpaid", u"250.00", 1},
        {u"Billed", u"250.00", 1},
        {u"Paid", u"0.00", 1},
    };
    EXPECT_EQ(rowsOf({.client = u"Acme"}), expected);
}

struct StatusCase {
    const char* name;
    EntryStatus status;
    Summary sums; // of 1.5 hours at 10.00
};

TEST_F(SummaryTest, EachStatusAddsToItsOwnSums) {
    const StatusCase cases[] = {
        {"non billable", EntryStatus::nonBillable, {.nonBillableHours = 1.5}},
        {"billable", EntryStatus::billable, {.billableHours = 1.5, .unpaidAmount = 15.0}},
        {"billed",
         EntryStatus::billed,
         {.billableHours = 1.5, .billedHours = 1.5, .unpaidAmount = 15.0, .billedAmount = 15.0}},
        {"paid", EntryStatus::paid, {.billableHours = 1.5, .paidHours = 1.5, .paidAmount = 15.0}},
        {"unknown status", EntryStatus{7}, {.billableHours = 1.5, .unpaidAmount = 15.0}},
    };
    for (const StatusCase& c : cases) {
        Summary summary;
        addToSummary(summary, {.duration = 150, .status = c.status, .rate = 1000}, {});
        EXPECT_EQ(summary, c.sums) << c.name;
    }
}

TEST_F(SummaryTest, CountsOnlyItsClientProjectAndTask) {
    const TimeEntry base{.client = u"Acme",
                         .project = u"Dam",
                         .task = u"Dig",
                         .duration = 100,
                         .status = EntryStatus::billable,
                         .rate = 1000};
    const auto with = [&](std::uint16_t day, auto set) {
        TimeEntry entry = base;
        entry.date = november(day);
        set(entry);
        insert(entry);
    };
    with(20, [](TimeEntry&) {});
    with(3, [](TimeEntry&) {});
    with(1, [](TimeEntry& e) { e.client = u"acme"; });
    with(2, [](TimeEntry& e) { e.client = u"Acme Ltd"; });
    with(4, [](TimeEntry& e) { e.project = u"Weir"; });
    with(5, [](TimeEntry& e) { e.project = u""; });
    with(6, [](TimeEntry& e) { e.task = u"Fill"; });
    with(25, [](TimeEntry& e) { e.task = u""; });

    struct ScopeCase {
        SummaryScope scope;
        double hours;
        std::uint16_t firstDay;
        std::uint16_t lastDay;
    };
    const ScopeCase cases[] = {
        {{.client = u"Acme"}, 6.0, 3, 25},
        {{.client = u"Acme", .project = u"Dam"}, 4.0, 3, 25},
        {{.client = u"Acme", .project = u"Dam", .task = u"Dig"}, 2.0, 3, 20},
        {{.client = u"Acme", .task = u"Dig"}, 4.0, 3, 20},
        {{.client = u"acme"}, 1.0, 1, 1},
    };
    for (const ScopeCase& c : cases) {
        const std::string name = platform::toUtf8(c.scope.client + u'/' + c.scope.project + u'/' + c.scope.task);
        const Summary summary = summaryOf(c.scope);
        EXPECT_EQ(summary.billableHours, c.hours) << name;
        EXPECT_EQ(summary.firstDate, november(c.firstDay)) << name;
        EXPECT_EQ(summary.lastDate, november(c.lastDay)) << name;
    }
}

TEST_F(SummaryTest, AddsUnroundedAmountsByTheRules) {
    for (std::uint16_t day = 1; day <= 3; ++day) // three times 0.125 are 0.375; rounded first they would be 0.39
        insert({.date = november(day), .client = u"Acme", .duration = 5, .status = EntryStatus::billable, .rate = 250});
    EXPECT_EQ(summaryOf({.client = u"Acme"}).unpaidAmount, 0.375);
    insert({.date = november(4), .client = u"Precise", .duration = 33, .status = EntryStatus::paid, .rate = 3000});
    EXPECT_EQ(summaryOf({.client = u"Precise"}, {.preciseMinutes = true}).paidAmount, 10.0);
    EXPECT_EQ(summaryOf({.client = u"Precise"}).paidAmount, 9.9);
}

TEST_F(SummaryTest, ReadsRecordsOfEarlierVersionsInStoredOrder) {
    const auto writeOld = [this](const char16_t* client, std::vector<PropertyValue> marks) {
        marks.insert(marks.begin(),
                     {PropertyValue::ofFileTime(field::date, november(2)), PropertyValue::ofText(field::client, client),
                      PropertyValue::ofUi2(field::duration, 200)});
        change([&](auto& transaction) {
            ASSERT_NE(stores().entries().write(transaction, store::RecordId::none, marks), store::RecordId::none);
        });
    };
    const auto billable = PropertyValue::ofBoolean(field::oldBillable, true);
    const auto billed = PropertyValue::ofBoolean(field::oldBilled, true);
    const auto start = platform::FileTime{november(5).ticks + 14 * 60 * platform::ticksPerSecond * 60};
    writeOld(u"Billed last", {billable, billed});
    writeOld(u"Billable last", {billed, billable});
    writeOld(u"Start apart", {PropertyValue::ofFileTime(field::oldStart, start)});

    EXPECT_EQ(summaryOf({.client = u"Billed last"}).paidHours, 2.0);
    EXPECT_EQ(summaryOf({.client = u"Billable last"}).paidHours, 0.0);
    EXPECT_EQ(summaryOf({.client = u"Billable last"}).billableHours, 2.0);
    EXPECT_EQ(summaryOf({.client = u"Start apart"}).firstDate,
              test::instant({.year = 2026, .month = 11, .day = 2, .hour = 14}));
}

TEST_F(SummaryTest, UndatedEntriesCountButHaveNoDate) {
    const std::vector<PropertyValue> undated = {PropertyValue::ofText(field::client, u"Acme"),
                                                PropertyValue::ofUi2(field::duration, 100)};
    change([&](auto& transaction) {
        ASSERT_NE(stores().entries().write(transaction, store::RecordId::none, undated), store::RecordId::none);
    });
    EXPECT_EQ(summaryOf({.client = u"Acme"}), (Summary{.nonBillableHours = 1.0}));
}

} // namespace
} // namespace hourwright::billing
