#pragma once

#include "billing/entry_draft.h"
#include "billing/expense_draft.h"
#include "platform/locale.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>

namespace hourwright::app {

/// A timer that goes on counting while an entry made of it is edited.
struct KeptTimer {
    std::size_t slot = 0;
    platform::FileTime start; ///< tells it from a later one in that slot

    friend bool operator==(const KeptTimer&, const KeptTimer&) = default;
};

/// A time entry in its editor, with all that the editor holds.
struct KeptEntry {
    store::TimeEntry stored;    ///< as it was opened; without id: a new one
    store::TimeEntry base;      ///< what the draft is applied to: `stored` with the times that were taken over
    billing::EntryDraft opened; ///< of `base`
    billing::EntryDraft draft;  ///< all that stands in the fields; the note when it was changed
    bool timesTaken = false;
    bool suggestsRates = false;     ///< the rate follows the client
    std::optional<KeptTimer> timer; ///< that it completes

    friend bool operator==(const KeptEntry&, const KeptEntry&) = default;
};

/// An expense in its editor.
struct KeptExpense {
    store::ExpenseEntry stored;                     ///< as it was opened; without id: a new one
    billing::ExpenseDraft draft;                    ///< all that stands in the fields
    std::optional<std::u16string> typedEndOdometer; ///< of a mileage expense, which keeps it instead of the distance

    friend bool operator==(const KeptExpense&, const KeptExpense&) = default;
};

using KeptRecord = std::variant<KeptEntry, KeptExpense>;

/// What is being edited in words: its kind, then day and names as they stand in the fields, a line each.
[[nodiscard]] std::u16string describe(const KeptRecord& record, const platform::Locale& locale);

} // namespace hourwright::app
