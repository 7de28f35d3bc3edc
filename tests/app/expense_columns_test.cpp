#include "app/expense_columns.h"

#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>
#include <vector>

namespace hourwright::app {
namespace {

using store::ExpenseEntry;
using store::ExpenseType;

ExpenseEntry sample(ExpenseType type) {
    return {.type = type,
            .date = platform::toFileTime({.year = 2026, .month = 11, .day = 16}).value(),
            .description = u"description",
            .client = u"client",
            .project = u"project",
            .category = type == ExpenseType::general ? u"category" : u"",
            .startOdometer = 4'294'967'295,
            .distance = 1200,
            .currency = u"EUR",
            .amount = 35,
            .receipt = type == ExpenseType::general,
            .billTo = u"contact",
            .custom1 = u"one",
            .custom2 = u"two"};
}

std::vector<std::u16string> cells(const ExpenseEntry& expense) {
    const auto locale = platform::makeIcuLocale("de_DE");
    std::vector<std::u16string> texts;
    for (std::size_t column = 0; column <= expenseColumns().size(); ++column)
        texts.push_back(cellText(expense, column, *locale));
    return texts;
}

TEST(ExpenseColumns, showGeneralAndMileageExpenses) {
    const std::vector<std::u16string> general{
        u"16.11.26", u"General", u"description", u"client", u"project", u"category", u"EUR", u"0,35",
        u"contact",  u"one",     u"two",         u"Yes",    u"",        u"",         u"",    u""};
    EXPECT_EQ(cells(sample(ExpenseType::general)), general);
    const std::vector<std::u16string> mileage{u"16.11.26", u"Mileage", u"description",   u"client",        u"project",
                                              u"",         u"EUR",     u"420,00",        u"contact",       u"one",
                                              u"two",      u"",        u"4.294.967.295", u"4.294.968.495", u"1.200",
                                              u""};
    EXPECT_EQ(cells(sample(ExpenseType::mileage)), mileage);
}

TEST(ExpenseColumns, rowImageShowsStatusAndNote) {
    EXPECT_TRUE(getRowImage(ExpenseEntry{.status = store::EntryStatus::paid, .note = u"n"}) == (RowImage{4, true}));
    EXPECT_TRUE(getRowImage(ExpenseEntry{.status = store::EntryStatus::billable}) == (RowImage{2, false}));
}

} // namespace
} // namespace hourwright::app
