#include "exchange/expense_csv.h"

#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {
namespace {

using store::ExpenseType;

store::ExpenseEntry fullExpense(ExpenseType type) {
    store::ExpenseEntry expense;
    expense.type = type;
    expense.date = *platform::toFileTime({.year = 2026, .month = 11, .day = 16, .hour = 12});
    expense.description = u"Trip";
    expense.client = u"Acme";
    expense.project = u"Tower";
    expense.category = u"Travel";
    expense.startOdometer = 1000;
    expense.distance = 10;
    expense.status = store::EntryStatus::billed;
    expense.currency = u"USD";
    expense.amount = 35;
    expense.receipt = true;
    expense.paidDate = *platform::toFileTime({.year = 2027, .month = 1, .day = 2});
    expense.billTo = u"Ann";
    expense.custom1 = u"x";
    expense.custom2 = u"y";
    expense.note = u"a\r\nb";
    return expense;
}

class ExpenseCsvTest : public testing::Test {
protected:
    std::unique_ptr<platform::Locale> system_ = platform::makeIcuLocale("de_DE");
    ExpenseCsv csv_{{.captions = {}, .expenseCaptions = {u"E1", u"E2"}, .lineBreak = u"|", .rules = {}}, *system_};
};

TEST_F(ExpenseCsvTest, Headers) {
    EXPECT_EQ(csv_.header(ExpenseType::mileage),
              u"\"Type\",\"Date\",\"Description\",\"Client\",\"Project\",\"Start Odo\",\"Distance\",\"Receipt\","
              u"\"Currency\",\"Amount\",\"Status\",\"Paid Date\",\"Bill To\",\"E1\",\"E2\",\"Note\"\r\n");
    EXPECT_EQ(csv_.header(ExpenseType::general),
              u"\"Type\",\"Date\",\"Description\",\"Client\",\"Project\",\"Category\",\"Receipt\","
              u"\"Currency\",\"Amount\",\"Status\",\"Paid Date\",\"Bill To\",\"E1\",\"E2\",\"Note\"\r\n");
}

TEST_F(ExpenseCsvTest, FullLines) {
    EXPECT_EQ(csv_.line(fullExpense(ExpenseType::general)),
              u"\"0\",\"16.11.26\",\"Trip\",\"Acme\",\"Tower\",\"Travel\",\"Y\",\"USD\",\"0.35\",\"2\",\"02.01.27\","
              u"\"Ann\",\"x\",\"y\",\"a\r\nb\"\r\n");
    EXPECT_EQ(csv_.line(fullExpense(ExpenseType::mileage)),
              u"\"1\",\"16.11.26\",\"Trip\",\"Acme\",\"Tower\",\"1000\",\"10\",\"Y\",\"USD\"0.35,\"3.50\",\"2\","
              u"\"02.01.27\",\"Ann\",\"x\",\"y\",\"a\r\nb\"\r\n");
}

TEST_F(ExpenseCsvTest, EmptyLines) {
    store::ExpenseEntry expense;
    expense.date = *platform::toFileTime({.year = 2026, .month = 2, .day = 3});
    EXPECT_EQ(csv_.line(expense),
              u"\"0\",\"03.02.26\",\"\",\"\",\"\",\"\",\"N\",\"\",\"0.00\",\"0\",\"\",\"\",\"\",\"\",\"\"\r\n");
    expense.type = ExpenseType::mileage;
    EXPECT_EQ(
        csv_.line(expense),
        u"\"1\",\"03.02.26\",\"\",\"\",\"\",\"0\",\"0\",\"N\",\"\"0.00,\"0.00\",\"0\",\"\",\"\",\"\",\"\",\"\"\r\n");
}

TEST_F(ExpenseCsvTest, LargestNumbers) {
    store::ExpenseEntry expense;
    expense.type = ExpenseType::mileage;
    expense.startOdometer = 4294967295U;
    expense.distance = 2147483647U;
    expense.amount = 4294967295U;
    EXPECT_NE(csv_.line(expense).find(u",\"-1\",\"2147483647\",\"N\",\"\"42949672.95,\"92233720304123248.00\","),
              std::u16string::npos)
        << testing::PrintToString(std::u16string(csv_.line(expense)));
}

} // namespace
} // namespace hourwright::exchange
