#include "billing/expense_draft.h"

#include "billing/new_entry.h"

#include <gtest/gtest.h>

namespace hourwright::billing {

namespace {

using platform::PlatformError;
using resources::StringId;
using store::ExpenseEntry;
using store::ExpenseType;
using namespace std::string_literals;

constexpr platform::SystemTime day{.year = 2026, .month = 11, .day = 16};
constexpr std::uint32_t largest = 4'294'967'295;

ExpenseDraft fullDraft() {
    ExpenseDraft draft;
    draft.date = platform::SystemTime{.year = 2026, .month = 11, .day = 16, .hour = 11, .minute = 5};
    draft.client = u"Acme";
    draft.project = u"Site";
    draft.description = u"Taxi";
    draft.category = u"Travel";
    draft.startOdometer = u"1200";
    draft.distance = u"35";
    draft.amount = u"19.999";
    draft.currency = u"EUR";
    draft.status = store::EntryStatus::billed;
    draft.receipt = true;
    draft.paidDate = platform::FileTime{77};
    draft.billTo = u"Bo";
    draft.custom1 = u"1";
    draft.custom2 = u"2";
    draft.note = u"late";
    return draft;
}

ExpenseEntry expenseOf(ExpenseType type) {
    ExpenseEntry expense;
    expense.type = type;
    expense.date = *platform::toFileTime(day);
    expense.client = u"Acme";
    expense.project = u"Site";
    expense.description = u"Taxi";
    if (type == ExpenseType::general) {
        expense.category = u"Travel";
    } else {
        expense.startOdometer = 1200;
        expense.distance = 35;
    }
    expense.amount = 1999;
    expense.currency = u"EUR";
    expense.status = store::EntryStatus::billed;
    expense.receipt = true;
    expense.paidDate = platform::FileTime{77};
    expense.billTo = u"Bo";
    expense.custom1 = u"1";
    expense.custom2 = u"2";
    expense.note = u"late";
    return expense;
}

ExpenseEntry empty(ExpenseType type) {
    ExpenseEntry expense;
    expense.type = type;
    return expense;
}

TEST(ExpenseDraft, fillsTheFieldsOfItsType) {
    for (const ExpenseType type : {ExpenseType::general, ExpenseType::mileage}) {
        ExpenseEntry expense = empty(type);
        ASSERT_EQ(applyDraft(fullDraft(), expense), std::nullopt);
        EXPECT_EQ(expense, expenseOf(type)) << static_cast<int>(type);
        ASSERT_EQ(applyDraft({}, expense), std::nullopt);
        EXPECT_EQ(expense, expenseOf(type)) << "nothing was touched";
    }
}

TEST(ExpenseDraft, needsNoField) {
    ExpenseEntry expense = expenseOf(ExpenseType::mileage);
    ExpenseDraft draft;
    draft.client = draft.project = draft.description = draft.startOdometer = draft.distance = u"";
    draft.amount = draft.currency = draft.billTo = draft.custom1 = draft.custom2 = draft.note = u"";
    draft.status = store::EntryStatus::nonBillable;
    draft.receipt = false;
    draft.paidDate = platform::FileTime{};
    ASSERT_EQ(applyDraft(draft, expense), std::nullopt);
    ExpenseEntry expected = empty(ExpenseType::mileage);
    expected.date = *platform::toFileTime(day);
    EXPECT_EQ(expense, expected);
}

TEST(ExpenseDraft, isRefusedInTheOrderOfTheChecks) {
    struct Row {
        const char* name;
        void (*spoil)(ExpenseDraft&);
        ExpenseRefusal refusal;
    };
    constexpr auto failed = PlatformError::invalidParameter;
    // From the last check to the first: each row spoils one field more and moves the refusal to the front.
    const Row rows[] = {
        {"note",
         [](ExpenseDraft& d) { d.note = std::u16string(65'001, u'x'); },
         {ExpenseField::note, StringId::noteTooLarge}},
        {"custom",
         [](ExpenseDraft& d) { d.custom1 = std::u16string(129, u'x'); },
         {ExpenseField::custom1, StringId::error, failed}},
        {"large rate",
         [](ExpenseDraft& d) { d.amount = u"42949672.96"; },
         {ExpenseField::amount, StringId::error, failed}},
        {"negative rate",
         [](ExpenseDraft& d) { d.amount = u"-0.01"; },
         {ExpenseField::amount, StringId::error, failed}},
        {"rate", [](ExpenseDraft& d) { d.amount = u"1e2"; }, {ExpenseField::amount, StringId::rateInvalid}},
        {"end odometer",
         [](ExpenseDraft& d) { d.distance = u"4294967295"; },
         {ExpenseField::distance, StringId::error, failed}},
        {"distance", [](ExpenseDraft& d) { d.distance = u"3.5"; }, {ExpenseField::distance, StringId::error, failed}},
        {"start",
         [](ExpenseDraft& d) { d.startOdometer = u"12k"; },
         {ExpenseField::startOdometer, StringId::numericOnly}},
        {"description",
         [](ExpenseDraft& d) { d.description = std::u16string(129, u'x'); },
         {ExpenseField::description, StringId::error, failed}},
        {"client",
         [](ExpenseDraft& d) { d.client = std::u16string(129, u'x'); },
         {ExpenseField::client, StringId::error, failed}},
        {"date", [](ExpenseDraft& d) { d.date->month = 13; }, {ExpenseField::date, StringId::error, failed}},
    };
    ExpenseDraft draft = fullDraft();
    ExpenseEntry expense = empty(ExpenseType::mileage);
    expense.custom2 = u"as it was";
    const ExpenseEntry before = expense;
    for (const Row& row : rows) {
        row.spoil(draft);
        EXPECT_EQ(applyDraft(draft, expense), row.refusal) << row.name;
        EXPECT_EQ(expense, before) << row.name;
    }
}

TEST(ExpenseDraft, aGeneralExpenseHasAnAmountAndACategory) {
    ExpenseEntry expense = empty(ExpenseType::general);
    ExpenseDraft draft;
    draft.amount = u"5 EUR";
    EXPECT_EQ(applyDraft(draft, expense)->message, StringId::numericOnly);
    draft.amount = u"42949672.95";
    draft.distance = u"no matter";
    ASSERT_EQ(applyDraft(draft, expense), std::nullopt);
    EXPECT_EQ(expense.amount, largest);
    draft.category = std::u16string(129, u'x');
    EXPECT_EQ(applyDraft(draft, expense)->field, ExpenseField::category);
}

TEST(ExpenseDraft, opensOnTheExpenseAndSavesOnlyWhatWasTouched) {
    for (const ExpenseType type : {ExpenseType::general, ExpenseType::mileage}) {
        ExpenseEntry expense = expenseOf(type);
        expense.id = store::RecordId{3};
        expense.amount = 201; // "2.01" typed would be cut to 200
        ExpenseDraft opened = draftOf(expense);
        EXPECT_EQ(opened.amount, u"2.01");
        EXPECT_EQ(opened.distance, type == ExpenseType::mileage ? std::optional(u"35"s) : std::nullopt);
        EXPECT_EQ(opened.category, type == ExpenseType::general ? std::optional(u"Travel"s) : std::nullopt);
        ExpenseEntry saved = expense;
        ASSERT_EQ(applyDraft(touchedOnly(opened, opened), saved), std::nullopt);
        EXPECT_EQ(saved, expense);
        ExpenseEntry other = empty(type);
        ASSERT_EQ(applyDraft(opened, other), std::nullopt);
        other.id = expense.id;
        other.amount = expense.amount;
        EXPECT_EQ(other, expense) << "every field is in the draft";
    }
    EXPECT_EQ(draftOf(empty(ExpenseType::mileage)).amount, u"");
    EXPECT_EQ(draftOf(empty(ExpenseType::mileage)).startOdometer, u"");
}

TEST(NewEntry, takesDateStatusAndCurrencyAndTheLastClient) {
    const NewEntryDefaults defaults{.billable = true, .currency = u"EUR"};
    const platform::SystemTime today{.year = 2026, .month = 11, .day = 16, .hour = 9, .minute = 12, .second = 1};
    store::TimeEntry last;
    last.client = u"Acme";
    last.project = u"Site";
    last.task = u"Review";
    store::TimeEntry expected;
    expected.date = *platform::toFileTime(day);
    expected.status = store::EntryStatus::billable;
    expected.currency = u"EUR";
    EXPECT_EQ(newTimeEntry(defaults, today), expected);
    expected.client = u"Acme";
    expected.project = u"Site";
    EXPECT_EQ(newTimeEntry(defaults, today, &last), expected);

    ExpenseEntry expense = empty(ExpenseType::mileage);
    expense.date = *platform::toFileTime(day);
    EXPECT_EQ(newExpense(ExpenseType::mileage, {}, today), expense);
    expense.status = store::EntryStatus::billable;
    expense.currency = u"EUR";
    EXPECT_EQ(newExpense(ExpenseType::mileage, defaults, today), expense);
}

} // namespace

} // namespace hourwright::billing
