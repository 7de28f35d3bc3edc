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

/// A new expense, dated today. A mileage expense goes on where the last one ended, at its rate, unless that reading
/// passes the largest one.
[[nodiscard]] store::ExpenseEntry newExpense(store::ExpenseType type, const NewEntryDefaults& defaults,
                                             const platform::SystemTime& today,
                                             const store::ExpenseEntry* lastMileage = nullptr);

/// A copy of an expense as a new one of today. It has not been billed or paid yet, whatever the original was.
[[nodiscard]] store::ExpenseEntry copyOf(const store::ExpenseEntry& expense, const platform::SystemTime& today);

/// The mileage expense of the latest date, of several the one that ended at the highest reading. Nothing when there is
/// none or the store could not be read.
[[nodiscard]] std::optional<store::ExpenseEntry> lastMileage(store::RecordStore& expenses);

} // namespace hourwright::billing
