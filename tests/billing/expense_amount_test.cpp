#include "billing/expense_amount.h"

#include "platform/utf.h"

#include <gtest/gtest.h>

namespace hourwright::billing {
namespace {

using store::ExpenseType;

TEST(ExpenseAmount, StoredAmountOrRateTimesDistance) {
    struct Case {
        ExpenseType type;
        std::uint32_t stored;
        std::uint32_t distance;
        double amount;
    };
    const Case cases[] = {
        {ExpenseType::general, 1999, 10, 19.99},
        {ExpenseType::general, 4294967295U, 0, 42949672.95},
        {ExpenseType::mileage, 35, 10, 3.5},
        {ExpenseType::mileage, 35, 0, 0.0},
        {ExpenseType::mileage, 50, 4294967295U, 2147483647.5},
    };
    for (const Case& c : cases) {
        store::ExpenseEntry expense;
        expense.type = c.type;
        expense.amount = c.stored;
        expense.distance = c.distance;
        EXPECT_DOUBLE_EQ(amountOf(expense), c.amount) << c.stored << " x " << c.distance;
    }
}

TEST(ExpenseAmount, TypedAmountIsCutOffToHundredths) {
    struct Case {
        std::u16string text;
        std::optional<std::uint32_t> stored;
    };
    const Case cases[] = {
        {u"19.99", 1999}, {u"0.359", 35}, {u"2.01", 200}, // 2.01 x 1000 is a little less than 2010
        {u"", 0},         {u"-0.001", 0}, {u"12,50", 1200}, {u"42949672.95", 4294967295U}, {u"42949672.96", {}},
        {u"-0.01", {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(expenseAmountFromText(c.text), c.stored) << platform::printableUtf8(c.text);
}

} // namespace
} // namespace hourwright::billing
