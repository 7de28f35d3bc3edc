#include "billing/expense_draft.h"

#include "billing/expense_amount.h"
#include "billing/numeric_test.h"
#include "billing/odometer.h"
#include "platform/calendar.h"
#include "platform/number_text.h"

#include <array>

namespace hourwright::billing {

namespace {

using resources::StringId;
using store::ExpenseEntry;

using Refusal = std::optional<ExpenseRefusal>;

// A draft on its way into a copy of the expense.
struct Work {
    const ExpenseDraft& draft;
    ExpenseEntry expense;
};

bool isMileage(const ExpenseEntry& expense) {
    return expense.type == store::ExpenseType::mileage;
}

struct TextField {
    ExpenseField field;
    std::optional<std::u16string> ExpenseDraft::*typed;
    std::u16string ExpenseEntry::*stored;
};

constexpr std::array firstTexts{
    TextField{ExpenseField::client, &ExpenseDraft::client, &ExpenseEntry::client},
    TextField{ExpenseField::project, &ExpenseDraft::project, &ExpenseEntry::project},
    TextField{ExpenseField::description, &ExpenseDraft::description, &ExpenseEntry::description},
};

constexpr TextField category{ExpenseField::category, &ExpenseDraft::category, &ExpenseEntry::category};

constexpr std::array otherTexts{
    TextField{ExpenseField::currency, &ExpenseDraft::currency, &ExpenseEntry::currency},
    TextField{ExpenseField::billTo, &ExpenseDraft::billTo, &ExpenseEntry::billTo},
    TextField{ExpenseField::custom1, &ExpenseDraft::custom1, &ExpenseEntry::custom1},
    TextField{ExpenseField::custom2, &ExpenseDraft::custom2, &ExpenseEntry::custom2},
};

Refusal takeDate(Work& work) {
    if (!work.draft.date)
        return {};
    platform::SystemTime day = *work.draft.date;
    platform::clearTime(day);
    const auto date = platform::toFileTime(day);
    if (!date)
        return cannotHold(ExpenseField::date);
    work.expense.date = *date;
    return {};
}

Refusal takeOneText(Work& work, const TextField& field) {
    const bool taken = takeText(work.draft.*field.typed, work.expense.*field.stored);
    return taken ? Refusal{} : cannotHold(field.field);
}

template<std::size_t count>
Refusal takeTexts(Work& work, const std::array<TextField, count>& fields) {
    for (const TextField& field : fields)
        if (Refusal refusal = takeOneText(work, field))
            return refusal;
    return {};
}

Refusal takeFirstTexts(Work& work) {
    return takeTexts(work, firstTexts);
}

Refusal takeCategory(Work& work) {
    return isMileage(work.expense) ? Refusal{} : takeOneText(work, category);
}

Refusal takeReading(ExpenseField field, const std::optional<std::u16string>& typed, std::uint32_t& stored) {
    if (!typed)
        return {};
    if (!passesNumericTest(*typed))
        return ExpenseRefusal{field, StringId::numericOnly};
    const auto reading = odometerFromText(*typed);
    if (!reading)
        return cannotHold(field);
    stored = *reading;
    return {};
}

Refusal takeOdometer(Work& work) {
    if (!isMileage(work.expense))
        return {};
    const ExpenseDraft& draft = work.draft;
    if (Refusal refusal = takeReading(ExpenseField::startOdometer, draft.startOdometer, work.expense.startOdometer))
        return refusal;
    if (Refusal refusal = takeReading(ExpenseField::distance, draft.distance, work.expense.distance))
        return refusal;
    Odometer odometer(work.expense.startOdometer, 0);
    const bool touched = draft.startOdometer || draft.distance;
    return !touched || odometer.setDistance(work.expense.distance) ? Refusal{} : cannotHold(ExpenseField::distance);
}

Refusal takeAmount(Work& work) {
    const auto& typed = work.draft.amount;
    if (!typed)
        return {};
    if (!passesNumericTest(*typed)) {
        const StringId message = isMileage(work.expense) ? StringId::rateInvalid : StringId::numericOnly;
        return ExpenseRefusal{ExpenseField::amount, message};
    }
    const auto amount = expenseAmountFromText(*typed);
    if (!amount)
        return cannotHold(ExpenseField::amount);
    work.expense.amount = *amount;
    return {};
}

Refusal takeChoices(Work& work) {
    const ExpenseDraft& draft = work.draft;
    work.expense.status = draft.status.value_or(work.expense.status);
    work.expense.receipt = draft.receipt.value_or(work.expense.receipt);
    work.expense.paidDate = draft.paidDate.value_or(work.expense.paidDate);
    return {};
}

Refusal takeOtherTexts(Work& work) {
    return takeTexts(work, otherTexts);
}

Refusal takeNote(Work& work) {
    const auto& note = work.draft.note;
    if (!note)
        return {};
    if (noteCharacters(*note) >= noteTooLargeFrom)
        return ExpenseRefusal{ExpenseField::note, StringId::noteTooLarge};
    work.expense.note = *note;
    return {};
}

// The order of the checks.
constexpr std::array<Refusal (*)(Work&), 8> steps{
    takeDate, takeFirstTexts, takeCategory, takeOdometer, takeAmount, takeChoices, takeOtherTexts, takeNote,
};

template<typename Visit>
void forEachField(Visit visit) {
    const auto visitAll = [&](auto... fields) { (visit(fields), ...); };
    visitAll(&ExpenseDraft::date, &ExpenseDraft::client, &ExpenseDraft::project, &ExpenseDraft::description,
             &ExpenseDraft::category, &ExpenseDraft::startOdometer, &ExpenseDraft::distance, &ExpenseDraft::amount,
             &ExpenseDraft::currency, &ExpenseDraft::status, &ExpenseDraft::receipt, &ExpenseDraft::paidDate,
             &ExpenseDraft::billTo, &ExpenseDraft::custom1, &ExpenseDraft::custom2, &ExpenseDraft::note);
}

std::u16string hundredthsText(std::uint32_t stored, bool isNew) {
    std::u16string text;
    if (stored != 0 || !isNew)
        platform::appendHundredths(text, stored);
    return text;
}

std::u16string readingText(std::uint32_t stored, bool isNew) {
    std::u16string text;
    if (stored != 0 || !isNew)
        platform::appendInteger(text, stored);
    return text;
}

} // namespace

ExpenseDraft draftOf(const ExpenseEntry& expense) {
    const bool isNew = expense.id == store::RecordId::none;
    ExpenseDraft draft;
    draft.date = platform::toSystemTime(expense.date);
    for (const TextField& field : firstTexts)
        draft.*field.typed = expense.*field.stored;
    for (const TextField& field : otherTexts)
        draft.*field.typed = expense.*field.stored;
    if (isMileage(expense)) {
        draft.startOdometer = readingText(expense.startOdometer, isNew);
        draft.distance = readingText(expense.distance, isNew);
    } else {
        draft.category = expense.category;
    }
    draft.amount = hundredthsText(expense.amount, isNew);
    draft.status = expense.status;
    draft.receipt = expense.receipt;
    draft.paidDate = expense.paidDate;
    draft.note = expense.note;
    return draft;
}

ExpenseDraft touchedOnly(ExpenseDraft draft, const ExpenseDraft& opened) {
    forEachField([&](auto field) {
        if (draft.*field == opened.*field)
            (draft.*field).reset();
    });
    return draft;
}

std::optional<ExpenseRefusal> applyDraft(const ExpenseDraft& draft, ExpenseEntry& expense) {
    Work work{draft, expense};
    for (const auto step : steps)
        if (Refusal refusal = step(work))
            return refusal;
    expense = std::move(work.expense);
    return {};
}

} // namespace hourwright::billing
