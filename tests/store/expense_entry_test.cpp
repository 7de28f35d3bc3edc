#include "store/expense_entry.h"

#include "store/fields.h"
#include "support/store_fixture.h"

#include <algorithm>

namespace hourwright::store {
namespace {

using platform::Seek;

class ExpenseEntryTest : public test::StoreFixture {
protected:
    std::vector<std::uint16_t> storedFields(RecordId id) {
        EXPECT_EQ(stores().expenses().seek(Seek::toId(id)), id);
        platform::PropertyBuffer properties;
        EXPECT_EQ(stores().expenses().read(properties), ReadResult::ok);
        std::vector<std::uint16_t> fields;
        for (const platform::PropertyValue& value : properties.values())
            fields.push_back(value.id.number());
        return fields;
    }
    ExpenseEntry readBack(RecordId id) {
        EXPECT_EQ(stores().expenses().seek(Seek::toId(id)), id);
        ExpenseEntry expense;
        EXPECT_EQ(readExpenseEntry(stores().expenses(), expense), ReadResult::ok);
        return expense;
    }
};

ExpenseEntry fullExpense(ExpenseType type) {
    ExpenseEntry expense;
    expense.type = type;
    expense.date = {130'000'000'000'000'000};
    expense.description = u"Ferry";
    expense.client = u"Walrus & Partners";
    expense.project = u"Harbour";
    if (type == ExpenseType::general)
        expense.category = u"Travel";
    else
        expense.startOdometer = 0xFFFF'FFFF, expense.distance = 17;
    expense.status = EntryStatus::billed;
    expense.currency = u"EUR";
    expense.amount = 0xFFFF'FFFF;
    expense.receipt = true;
    expense.paidDate = {130'000'000'000'000'001};
    expense.billTo = u"Frau Ärmel";
    expense.custom1 = u"eins";
    expense.custom2 = u"zwei";
    expense.note = u"rough sea";
    expense.modified = {130'000'000'000'000'002};
    return expense;
}

TEST_F(ExpenseEntryTest, EveryFieldSurvivesInTheFixedOrder) {
    ExpenseEntry general = fullExpense(ExpenseType::general);
    ExpenseEntry mileage = fullExpense(ExpenseType::mileage);
    change([&](auto& transaction) {
        ASSERT_TRUE(insertExpenseEntry(transaction, stores().expenses(), general, 1));
        ASSERT_TRUE(insertExpenseEntry(transaction, stores().expenses(), mileage));
    });
    reopen();
    EXPECT_EQ(readBack(general.id), general);
    EXPECT_EQ(readBack(mileage.id), mileage);
    EXPECT_EQ(storedFields(general.id),
              (std::vector<std::uint16_t>{1102, 1001, 1202, 1002, 1003, 1605, 1019, 1007, 1008, 1603, 1020, 1014, 1015,
                                          1016, 1604, 1021, 1022}));
    EXPECT_EQ(storedFields(mileage.id),
              (std::vector<std::uint16_t>{1102, 1001, 1202, 1002, 1003, 1601, 1602, 1019, 1007, 1008, 1603, 1020, 1014,
                                          1015, 1016, 1604, 1021, 1022}));
    EXPECT_EQ(endOdometer(mileage), 4'294'967'312ULL);
}

TEST_F(ExpenseEntryTest, EmptyFieldsAreLeftOutButNeverTheOdometer) {
    ExpenseEntry general;
    ExpenseEntry mileage;
    mileage.type = ExpenseType::mileage;
    mileage.category = u"belongs to general expenses";
    change([&](auto& transaction) {
        ASSERT_TRUE(insertExpenseEntry(transaction, stores().expenses(), general));
        ASSERT_TRUE(insertExpenseEntry(transaction, stores().expenses(), mileage));
    });
    EXPECT_EQ(storedFields(general.id), (std::vector<std::uint16_t>{1102, 1001, 1002, 1021, 1022}));
    EXPECT_EQ(storedFields(mileage.id), (std::vector<std::uint16_t>{1102, 1001, 1002, 1601, 1602, 1021, 1022}));
}

TEST_F(ExpenseEntryTest, UpdateRemovesWhatWasClearedAndWhatTheKindForbids) {
    ExpenseEntry expense = fullExpense(ExpenseType::general);
    change([&](auto& transaction) { ASSERT_TRUE(insertExpenseEntry(transaction, stores().expenses(), expense)); });
    expense.type = ExpenseType::mileage;
    expense.receipt = false;
    expense.note.clear();
    change([&](auto& transaction) { ASSERT_TRUE(updateExpenseEntry(transaction, stores().expenses(), expense)); });
    const auto fields = storedFields(expense.id);
    for (const std::uint16_t gone : {field::category, field::receipt, field::expenseNote})
        EXPECT_EQ(std::ranges::count(fields, gone), 0) << gone;
    for (const std::uint16_t present : {field::startOdometer, field::distance, field::description})
        EXPECT_EQ(std::ranges::count(fields, present), 1) << present;
    EXPECT_EQ(expense.flags, flagsChanged);
}

} // namespace
} // namespace hourwright::store
