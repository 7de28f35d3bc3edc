#pragma once

#include "platform/file_time.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <string>

namespace hourwright::billing {

/// What the settings say about new entries and expenses.
struct NewEntryDefaults {
    bool billable = false;
    std::u16string currency;
};

/// A new time entry as the editor offers it: dated today without a start time, and with the client and project of the
/// last entry when there is one. Its task and duration are missing, so it is not valid yet.
[[nodiscard]] store::TimeEntry newTimeEntry(const NewEntryDefaults& defaults, const platform::SystemTime& today,
                                            const store::TimeEntry* last = nullptr);

/// A new expense, dated today.
[[nodiscard]] store::ExpenseEntry newExpense(store::ExpenseType type, const NewEntryDefaults& defaults,
                                             const platform::SystemTime& today);

} // namespace hourwright::billing
