#include "billing/new_entry.h"

#include "billing/client_choices.h"
#include "billing/expense_draft.h"
#include "support/store_fixture.h"

namespace hourwright::billing {
namespace {

using store::ExpenseEntry;
using store::ExpenseType;
using namespace std::string_literals;

constexpr platform::SystemTime today{.year = 2026, .month = 11, .day = 16};
constexpr std::uint32_t largest = 4'294'967'295;

class NewExpenseTest : public test::StoreFixture {
protected:
    void insert(ExpenseEntry expense) {
        change([&](auto& transaction) {
            ASSERT_TRUE(store::insertExpenseEntry(transaction, stores().expenses(), expense));
        });
    }
};

TEST_F(NewExpenseTest, mileageGoesOnWhereTheLastOneEnded) {
    EXPECT_EQ(lastMileage(stores().expenses()), std::nullopt);
    insert({.type = ExpenseType::mileage, .date = {300}, .startOdometer = 2000, .distance = 40, .amount = 52});
    insert({.type = ExpenseType::mileage, .date = {300}, .startOdometer = 1900, .distance = 100, .amount = 51});
    insert({.type = ExpenseType::mileage, .date = {200}, .startOdometer = 9000, .distance = 1});
    insert({.type = ExpenseType::general, .date = {400}, .amount = 7});
    const auto last = lastMileage(stores().expenses());
    ASSERT_TRUE(last);
    const ExpenseEntry mileage = newExpense(ExpenseType::mileage, {}, today, &*last);
    EXPECT_EQ(mileage.startOdometer, 2040U);
    EXPECT_EQ(mileage.distance, 0U);
    EXPECT_EQ(mileage.amount, 52U);
    const ExpenseEntry general = newExpense(ExpenseType::general, {}, today, &*last);
    EXPECT_EQ(general.startOdometer, 0U);
    EXPECT_EQ(general.amount, 0U);
    const ExpenseEntry beyond{.type = ExpenseType::mileage, .startOdometer = largest, .distance = 1};
    EXPECT_EQ(newExpense(ExpenseType::mileage, {}, today, &beyond).startOdometer, 0U);
}

TEST(CopiedExpense, isANewOneOfTodayThatIsNotBilledYet) {
    const ExpenseEntry paid{.id = store::RecordId{7},
                            .type = ExpenseType::mileage,
                            .date = {5},
                            .client = u"Acme",
                            .startOdometer = 10,
                            .distance = 4,
                            .status = store::EntryStatus::paid,
                            .receipt = true,
                            .paidDate = {77},
                            .flags = 3};
    ExpenseEntry expected = paid;
    expected.id = store::RecordId::none;
    expected.date = platform::toFileTime(today).value();
    expected.status = store::EntryStatus::billable;
    expected.paidDate = {};
    expected.flags = 0;
    EXPECT_EQ(copyOf(paid, today), expected);
    EXPECT_EQ(copyOf({.status = store::EntryStatus::nonBillable}, today).status, store::EntryStatus::nonBillable);
}

TEST(ExpenseClientChange, clearsWhatOnlyTheFormerClientHas) {
    store::ClientTree acme;
    acme.projects.push_back({.name = u"Site", .tasks = {}});
    acme.projects.push_back({.name = u"Shop", .tasks = {}});
    acme.contacts.push_back({.name = u"Ann"});
    store::ClientTree bolt;
    bolt.projects.push_back({.name = u"Site", .tasks = {}});
    const auto changed = [&](std::u16string project, std::u16string billTo) {
        ExpenseDraft draft;
        draft.project = std::move(project);
        draft.billTo = std::move(billTo);
        changeClient(draft, &acme, &bolt);
        return std::pair(*draft.project, *draft.billTo);
    };
    EXPECT_EQ(changed(u"Site", u"Ann"), std::pair(u"Site"s, u""s));
    EXPECT_EQ(changed(u"Shop", u"Typed"), std::pair(u""s, u"Typed"s));
}

} // namespace
} // namespace hourwright::billing
