#pragma once

#include "billing/time_rules.h"
#include "platform/file_time.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <optional>
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

/// Moves an entry to a day, with a start time of that hour and minute where one is given, and gives it the duration of
/// that many minutes, as if it had been worked from the start to an end.
void placeEntry(store::TimeEntry& entry, const platform::SystemTime& day,
                const std::optional<platform::SystemTime>& start, std::optional<int> minutes, const TimeRules& rules);

/// A new expense, dated today.
[[nodiscard]] store::ExpenseEntry newExpense(store::ExpenseType type, const NewEntryDefaults& defaults,
                                             const platform::SystemTime& today);

} // namespace hourwright::billing
