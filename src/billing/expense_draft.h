#pragma once

#include "billing/field_refusal.h"
#include "billing/typed_text.h"
#include "platform/file_time.h"
#include "store/expense_entry.h"

#include <cstdint>
#include <optional>
#include <string>

namespace hourwright::billing {

/// The fields of a draft, for the focus after a refusal.
enum class ExpenseField : std::uint8_t {
    date,
    client,
    project,
    description,
    category,
    startOdometer,
    distance,
    amount,
    currency,
    status,
    receipt,
    paidDate,
    billTo,
    custom1,
    custom2,
    note,
};

/// What somebody has typed for an expense. What is absent was not touched and keeps its value in the expense; an empty
/// text clears its field.
struct ExpenseDraft {
    std::optional<platform::SystemTime> date; ///< year, month and day count
    std::optional<std::u16string> client;
    std::optional<std::u16string> project;
    std::optional<std::u16string> description;
    std::optional<std::u16string> category;      ///< of a general expense
    std::optional<std::u16string> startOdometer; ///< of a mileage expense, distance units
    std::optional<std::u16string> distance;      ///< of a mileage expense, distance units
    std::optional<std::u16string> amount;        ///< currency units; of a mileage expense per distance unit
    std::optional<std::u16string> currency;
    std::optional<store::EntryStatus> status;
    std::optional<bool> receipt;
    std::optional<platform::FileTime> paidDate; ///< zero: none
    std::optional<std::u16string> billTo;
    std::optional<std::u16string> custom1;
    std::optional<std::u16string> custom2;
    std::optional<std::u16string> note;

    friend bool operator==(const ExpenseDraft&, const ExpenseDraft&) = default;
};

using ExpenseRefusal = FieldRefusal<ExpenseField>;

/// The draft that an editor opens with: every field as the expense has it, those of the other type absent. A new
/// expense (id none) shows no number that is 0.
[[nodiscard]] ExpenseDraft draftOf(const store::ExpenseEntry& expense);

/// Of an editor's draft what differs from the one that it opened with, so that a number which was not touched stays as
/// it is stored.
[[nodiscard]] ExpenseDraft touchedOnly(ExpenseDraft draft, const ExpenseDraft& opened);

/// Checks a draft against the expense that it changes, in this order: date, client, project, description, category,
/// start odometer, distance, amount, the other texts, note. No field is required. Fields of the other type of expense
/// are left alone. The first failure is returned and the expense stays as it was; without one the expense has taken
/// over the draft. A text that is too long, a number that its field cannot hold and an end odometer of more than 32
/// bits are failed writes (error 87).
[[nodiscard]] std::optional<ExpenseRefusal> applyDraft(const ExpenseDraft& draft, store::ExpenseEntry& expense);

} // namespace hourwright::billing
