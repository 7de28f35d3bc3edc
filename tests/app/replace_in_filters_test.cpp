#include "app/replace_in_filters.h"

#include "app/entry_filter.h"
#include "app/expense_filter.h"
#include "support/memory_registry.h"

#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using billing::ReplaceType;

struct FilterCase {
    const char* name;
    ReplaceType type;
    std::u16string EntryFilter::*inEntries;
    std::u16string ExpenseFilter::*inExpenses;
};

TEST(ReplaceInFilters, RenamesWhatTheStoredFiltersName) {
    const FilterCase cases[] = {
        {"client", ReplaceType::client, &EntryFilter::client, &ExpenseFilter::client},
        {"project", ReplaceType::project, &EntryFilter::project, &ExpenseFilter::project},
        {"phase", ReplaceType::phase, &EntryFilter::phase, nullptr},
        {"task", ReplaceType::task, &EntryFilter::task, nullptr},
        {"bill to", ReplaceType::billTo, &EntryFilter::billTo, &ExpenseFilter::billTo},
        {"currency", ReplaceType::currency, &EntryFilter::currency, &ExpenseFilter::currency},
        {"custom 1", ReplaceType::custom1, nullptr, nullptr},
        {"custom 2", ReplaceType::custom2, nullptr, nullptr},
        {"custom 3", ReplaceType::custom3, nullptr, nullptr},
        {"category", ReplaceType::category, nullptr, &ExpenseFilter::category},
    };
    test::MemoryRegistry registry;
    EntryFilter entries;
    entries.client = entries.project = entries.phase = entries.task = entries.billTo = entries.currency = u"x";
    entries.showPaid = false;
    ExpenseFilter expenses;
    expenses.client = expenses.project = expenses.category = expenses.currency = expenses.billTo = u"x";
    ASSERT_TRUE(entries.save(registry) && expenses.save(registry));
    for (const FilterCase& c : cases) {
        EXPECT_TRUE(replaceInFilters(registry, {c.type, u"X", u"z"})) << c.name;
        EXPECT_TRUE(replaceInFilters(registry, {c.type, u"x", u"y"})) << c.name;
        if (c.inEntries)
            entries.*c.inEntries = u"y";
        if (c.inExpenses)
            expenses.*c.inExpenses = u"y";
        EXPECT_EQ(EntryFilter::load(registry), entries) << c.name;
        EXPECT_EQ(ExpenseFilter::load(registry), expenses) << c.name;
    }
}

TEST(ReplaceInFilters, RenamesCustomFieldsOfTheFiltersInUse) {
    EntryFilter entries;
    ExpenseFilter expenses;
    entries.custom1 = entries.custom3 = expenses.custom1 = expenses.custom2 = entries.client = u"x";
    const EntryFilter entriesBefore = entries;
    const ExpenseFilter expensesBefore = expenses;
    for (const ReplaceType type : {ReplaceType::custom3, ReplaceType::category}) {
        replaceInFilter(entries, {type, u"x", u"y"});
        replaceInFilter(expenses, {type, u"x", u"y"});
    }
    EntryFilter changed = entriesBefore;
    changed.custom3 = u"y";
    EXPECT_EQ(entries, changed);
    EXPECT_EQ(expenses, expensesBefore);
    replaceInFilter(expenses, {ReplaceType::custom2, u"x", u"y"});
    EXPECT_EQ(expenses.custom2, u"y");
    EXPECT_EQ(expenses.custom1, u"x");
}

} // namespace
} // namespace hourwright::app
