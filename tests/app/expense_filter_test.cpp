#include "app/expense_filter.h"

#include "app/recording_registry.h"
#include "app/settings_fixture.h"
#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using store::EntryStatus;
using store::ExpenseEntry;
using store::ExpenseType;

const platform::SystemTime firstOfMay{.year = 2026, .month = 5, .day = 1};

class ExpenseFilterTest : public testing::Test {
protected:
    [[nodiscard]] bool passes(const ExpenseFilter& filter, const ExpenseEntry& expense) const {
        return filter.matches(expense, *locale_);
    }

    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
    test::SettingsRegistry registry_;
};

TEST_F(ExpenseFilterTest, EveryConditionRejectsOnItsOwn) {
    const ExpenseEntry expense{.type = ExpenseType::mileage,
                               .date = platform::toFileTime(firstOfMay).value(),
                               .client = u"client",
                               .project = u"project",
                               .category = u"category",
                               .status = EntryStatus::billed,
                               .currency = u"currency",
                               .receipt = true,
                               .billTo = u"billTo",
                               .custom1 = u"custom1",
                               .custom2 = u"custom2"};
    ExpenseFilter same{{.rangeStart = firstOfMay, .rangeEnd = firstOfMay}};
    same.client = expense.client;
    same.project = expense.project;
    same.category = expense.category;
    same.currency = expense.currency;
    same.billTo = expense.billTo;
    same.custom1 = expense.custom1;
    same.custom2 = expense.custom2;
    same.type = 1;
    same.receipt = 1;
    EXPECT_TRUE(passes(same, expense));

    struct Case {
        const char* name;
        void (*change)(ExpenseFilter&);
    };
    const Case cases[] = {
        {"range", [](ExpenseFilter& f) { f.rangeEnd.month = 4; }},
        {"client", [](ExpenseFilter& f) { f.client = u"Client"; }},
        {"project", [](ExpenseFilter& f) { f.project = u"Project"; }},
        {"category", [](ExpenseFilter& f) { f.category = u"Category"; }},
        {"currency", [](ExpenseFilter& f) { f.currency = u"Currency"; }},
        {"bill to", [](ExpenseFilter& f) { f.billTo = u"BillTo"; }},
        {"custom 1", [](ExpenseFilter& f) { f.custom1 = u"Custom1"; }},
        {"custom 2", [](ExpenseFilter& f) { f.custom2 = u"Custom2"; }},
        {"status", [](ExpenseFilter& f) { f.showBilled = false; }},
        {"type", [](ExpenseFilter& f) { f.type = 0; }},
        {"receipt", [](ExpenseFilter& f) { f.receipt = 0; }},
    };
    for (const Case& c : cases) {
        ExpenseFilter filter = same;
        c.change(filter);
        EXPECT_FALSE(passes(filter, expense)) << c.name;
    }
    same.showAll();
    EXPECT_TRUE(same == ExpenseFilter{});
    EXPECT_TRUE(passes(same, expense));
}

TEST_F(ExpenseFilterTest, TypeAndReceiptCodes) {
    struct Case {
        std::int16_t type;
        std::uint32_t receipt;
        bool general, mileage; // each with a receipt
        bool generalWithout;
    };
    const Case cases[] = {
        {-1, 2, true, true, true},   {0, 2, true, false, true},  {1, 2, false, true, false},
        {2, 2, false, false, false}, {-1, 1, true, true, false}, {-1, 0, false, false, true},
        {-1, 9, true, true, true},
    };
    for (const Case& c : cases) {
        ExpenseFilter filter;
        filter.type = c.type;
        filter.receipt = c.receipt;
        EXPECT_EQ(passes(filter, {.type = ExpenseType::general, .receipt = true}), c.general) << c.type << c.receipt;
        EXPECT_EQ(passes(filter, {.type = ExpenseType::mileage, .receipt = true}), c.mileage) << c.type << c.receipt;
        EXPECT_EQ(passes(filter, {.type = ExpenseType::general}), c.generalWithout) << c.type << c.receipt;
    }
}

TEST_F(ExpenseFilterTest, SavesInItsOrder) {
    test::RecordingRegistry registry;
    ExpenseFilter filter{{.rangeStart = firstOfMay, .showBillable = false}};
    EXPECT_TRUE(filter.save(registry));
    std::vector<std::string> expected{
        "-fExpClient",   "-fExpProject", "-fExpCategory", "-fExpCustom1", "-fExpCustom2",
        "-fExpCurrency", "-fExpBillTo",  "-fExpFlags",    "-fExpReceipt", "-fExpType",
    };
    const std::size_t removals = expected.size();
    expected.insert(expected.end(), {"fExpFlags=52", "fExpType=4294967295", "fExpReceipt=2"});
    EXPECT_EQ(registry.changes, expected);

    filter = {};
    filter.client = u"a";
    filter.project = u"b";
    filter.category = u"c";
    filter.currency = u"d";
    filter.billTo = u"e";
    filter.custom1 = u"f";
    filter.type = 1;
    filter.receipt = 0;
    registry.changes.clear();
    EXPECT_TRUE(filter.save(registry));
    expected.resize(removals);
    expected.insert(expected.end(), {"fExpClient=a|", "fExpProject=b|", "fExpCategory=c|", "fExpCurrency=d|",
                                     "fExpBillTo=e|", "fExpFlags=53", "fExpType=1", "fExpReceipt=0"});
    EXPECT_EQ(registry.changes, expected);
}

TEST_F(ExpenseFilterTest, LoadsWhatWasSaved) {
    EXPECT_TRUE(ExpenseFilter::load(registry_) == ExpenseFilter{});
    ExpenseFilter filter{{.showPaid = false}};
    filter.client = u"a";
    filter.project = u"b";
    filter.category = u"c";
    filter.currency = u"d";
    filter.billTo = u"e";
    filter.type = 0;
    filter.receipt = 1;
    EXPECT_TRUE(filter.save(registry_));
    EXPECT_TRUE(ExpenseFilter::load(registry_) == filter);

    ExpenseFilter now = filter;
    now.rangeStart = now.rangeEnd = firstOfMay;
    now.custom1 = now.custom2 = u"f";
    EXPECT_TRUE(now.save(registry_));
    EXPECT_TRUE(ExpenseFilter::load(registry_) == filter);

    registry_.put(u"fExpType", 0x0000FFFF);
    EXPECT_EQ(ExpenseFilter::load(registry_).type, ExpenseFilter::anyType);
}

} // namespace
} // namespace hourwright::app
