#include "billing/selected_records.h"

#include "store/read_record.h"
#include "store/save.h"
#include "support/store_fixture.h"

namespace hourwright::billing {
namespace {

using store::EntryStatus;
using store::RecordId;

constexpr platform::FileTime now{133'000'000'000'000'000};

class SelectedRecordsTest : public test::StoreFixture {
protected:
    RecordId add(EntryStatus status) {
        store::TimeEntry entry;
        entry.task = u"Design";
        entry.status = status;
        change([&](platform::Transaction& t) { EXPECT_TRUE(store::saveTimeEntry(t, stores(), entry)); });
        return entry.id;
    }

    RecordId addExpense(EntryStatus status) {
        store::ExpenseEntry expense;
        expense.status = status;
        change([&](platform::Transaction& t) { EXPECT_TRUE(store::saveExpenseEntry(t, stores(), expense)); });
        return expense.id;
    }

    store::TimeEntry entry(RecordId id) {
        store::TimeEntry result;
        EXPECT_EQ(store::readRecord(stores(), id, result), store::ReadResult::ok);
        return result;
    }

    store::ExpenseEntry expense(RecordId id) {
        store::ExpenseEntry result;
        EXPECT_EQ(store::readRecord(stores(), id, result), store::ReadResult::ok);
        return result;
    }
};

TEST_F(SelectedRecordsTest, TogglesBilledEachForItself) {
    const std::vector ids = {add(EntryStatus::nonBillable), add(EntryStatus::billable), add(EntryStatus::billed),
                             add(EntryStatus::paid)};
    change([&](platform::Transaction& t) { EXPECT_TRUE(toggleBilled(t, stores(), Selected::entries, ids, now)); });
    const std::vector expected = {EntryStatus::billed, EntryStatus::billed, EntryStatus::billable,
                                  EntryStatus::billable};
    for (std::size_t i = 0; i < ids.size(); ++i) {
        EXPECT_EQ(entry(ids[i]).status, expected[i]) << i;
        EXPECT_EQ(entry(ids[i]).modified, now);
    }
}

TEST_F(SelectedRecordsTest, MarksPaidAndTakesThatBackOnlyWhenAllArePaid) {
    const std::vector ids = {addExpense(EntryStatus::billable), addExpense(EntryStatus::paid)};
    const auto toggle = [&](platform::FileTime at) {
        change([&](platform::Transaction& t) { EXPECT_TRUE(togglePaid(t, stores(), Selected::expenses, ids, at)); });
    };
    toggle(now);
    for (const RecordId id : ids) {
        EXPECT_EQ(expense(id).status, EntryStatus::paid);
        EXPECT_EQ(expense(id).paidDate, now);
    }
    toggle({now.ticks + 1});
    for (const RecordId id : ids) {
        EXPECT_EQ(expense(id).status, EntryStatus::billed);
        EXPECT_EQ(expense(id).paidDate, now);
    }
}

TEST_F(SelectedRecordsTest, MarksPaidOnADayAndUnpaidWhateverTheStatus) {
    const std::vector ids = {add(EntryStatus::nonBillable), add(EntryStatus::paid)};
    const platform::FileTime day{now.ticks - 1000};
    change([&](platform::Transaction& t) { EXPECT_TRUE(markPaid(t, stores(), Selected::entries, ids, day, now)); });
    for (const RecordId id : ids) {
        EXPECT_EQ(entry(id).status, EntryStatus::paid);
        EXPECT_EQ(entry(id).paidDate, day);
        EXPECT_EQ(entry(id).modified, now);
    }
    change([&](platform::Transaction& t) { EXPECT_TRUE(markUnpaid(t, stores(), Selected::entries, ids, now)); });
    for (const RecordId id : ids) {
        EXPECT_EQ(entry(id).status, EntryStatus::billed);
        EXPECT_EQ(entry(id).paidDate, day);
    }
}

TEST_F(SelectedRecordsTest, DeletesWhatIsStillThere) {
    const RecordId kept = add(EntryStatus::billed);
    const std::vector ids = {add(EntryStatus::billed), add(EntryStatus::billed)};
    for (int round = 0; round < 2; ++round)
        change([&](platform::Transaction& t) { EXPECT_TRUE(deleteRecords(t, stores(), Selected::entries, ids)); });
    EXPECT_EQ(stores().entries().recordCount(), 1U);
    EXPECT_EQ(entry(kept).id, kept);
    store::TimeEntry gone;
    EXPECT_EQ(store::readRecord(stores(), ids[0], gone), store::ReadResult::noMore);
    store::TimeEntry opened = entry(kept);
    EXPECT_EQ(store::compareWithStored(stores(), opened, gone), store::StoredState::same);
    opened.task = u"Other";
    EXPECT_EQ(store::compareWithStored(stores(), opened, gone), store::StoredState::changed);
}

} // namespace
} // namespace hourwright::billing
