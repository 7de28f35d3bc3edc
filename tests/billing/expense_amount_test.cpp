#include "billing/expense_amount.h"

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

} // namespace
} // namespace hourwright::billing
