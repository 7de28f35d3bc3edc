#include "app/filter_description.h"

#include "platform/icu/icu_locale.h"

#include <functional>
#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

constexpr platform::SystemTime november(std::uint16_t day) {
    return {.year = 2026, .month = 11, .day = day};
}

template<typename Filter>
struct Case {
    const char* name;
    std::function<void(Filter&)> change;
    std::u16string words;
};

const std::unique_ptr<platform::Locale>& english() {
    static const auto locale = platform::makeIcuLocale("en_US");
    return locale;
}

const Case<EntryFilter> entryCases[] = {
    {"everything", [](auto&) {}, u""},
    {"unpaid of a client in a range",
     [](auto& filter) {
         filter.client = u"Acme";
         filter.showUnpaidOnly();
         filter.rangeStart = november(1);
         filter.rangeEnd = november(15);
     },
     u"Client Acme, Unpaid only, 11/1/26 – 11/15/26"},
    {"one day", [](auto& filter) { filter.rangeStart = filter.rangeEnd = november(3); }, u"11/3/26"},
    {"texts in the order of the fields",
     [](auto& filter) {
         filter.custom3 = u"z";
         filter.custom2 = u"y";
         filter.custom1 = u"x";
         filter.currency = u"EUR";
         filter.billTo = u"Ms Lind";
         filter.task = u"Survey";
         filter.phase = u"I";
         filter.project = u"Bridge";
     },
     u"Project Bridge, Phase I, Task Survey, Bill to Ms Lind, Currency EUR, Cost centre x, y, Site z"},
    {"rate type", [](auto& filter) { filter.rateType = 3; }, u"Fixed Rate"},
    {"first rate type", [](auto& filter) { filter.rateType = 0; }, u"Normal Rate"},
    {"rate type without a name", [](auto& filter) { filter.rateType = 9; }, u"Rate type 9"},
    {"two statuses", [](auto& filter) { filter.showNonBillable = filter.showPaid = false; }, u"Billable + Billed only"},
    {"one status", [](auto& filter) { filter.setStatusFlags(0x4); }, u"Paid only"},
    {"no status", [](auto& filter) { filter.setStatusFlags(0); }, u"No status"},
};

TEST(FilterDescriptionTest, TellsWhatAnEntryFilterShows) {
    for (const auto& testCase : entryCases) {
        EntryFilter filter;
        testCase.change(filter);
        EXPECT_EQ(describeFilter(filter, {u"Cost centre", u"", u"Site"}, *english()), testCase.words) << testCase.name;
    }
}

const Case<ExpenseFilter> expenseCases[] = {
    {"everything", [](auto&) {}, u""},
    {"receipt", [](auto& filter) { filter.receipt = ExpenseFilter::withReceipt; }, u"With receipt"},
    {"no receipt", [](auto& filter) { filter.receipt = ExpenseFilter::withoutReceipt; }, u"Without receipt"},
    {"receipt of no meaning", [](auto& filter) { filter.receipt = 7; }, u""},
    {"mileage of a category",
     [](auto& filter) {
         filter.type = 1;
         filter.category = u"Travel";
     },
     u"Category Travel, Mileage"},
    {"all texts",
     [](auto& filter) {
         filter.client = u"a";
         filter.project = u"b";
         filter.currency = u"c";
         filter.billTo = u"d";
         filter.custom1 = u"e";
         filter.custom2 = u"f";
     },
     u"Client a, Project b, Currency c, Bill to d, Lot e, Ward f"},
};

TEST(FilterDescriptionTest, TellsWhatAnExpenseFilterShows) {
    for (const auto& testCase : expenseCases) {
        ExpenseFilter filter;
        testCase.change(filter);
        EXPECT_EQ(describeFilter(filter, {u"Lot", u"Ward"}, *english()), testCase.words) << testCase.name;
    }
}

} // namespace
} // namespace hourwright::app
