#pragma once

#include "store/expense_entry.h"
#include "store/time_entry.h"

namespace hourwright::billing {

/// What a record becomes that was changed in an editor and by somebody else meanwhile.
template<typename Record>
struct MergedRecord {
    Record record;         ///< as stored, with all that the editor changed
    bool collides = false; ///< both changed the same, differently: the editor's value would overwrite the other one
};

/// Puts what was `edited` since the record was `opened` onto what is `stored` now. What belongs together is taken
/// together: a time entry's date, duration and break; status and paid date; an amount and its currency; an odometer's
/// readings. Id, flags and time of change are those stored.
[[nodiscard]] MergedRecord<store::TimeEntry>
mergeRecords(const store::TimeEntry& opened, const store::TimeEntry& edited, const store::TimeEntry& stored);
[[nodiscard]] MergedRecord<store::ExpenseEntry>
mergeRecords(const store::ExpenseEntry& opened, const store::ExpenseEntry& edited, const store::ExpenseEntry& stored);

} // namespace hourwright::billing
