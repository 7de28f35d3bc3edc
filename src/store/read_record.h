#pragma once

#include "store/expense_entry.h"
#include "store/stores.h"
#include "store/time_entry.h"

namespace hourwright::store {

/// Reads the record with this id; `noMore` when there is none.
[[nodiscard]] ReadResult readRecord(Stores& stores, RecordId id, TimeEntry& out);
[[nodiscard]] ReadResult readRecord(Stores& stores, RecordId id, ExpenseEntry& out);

/// What became of a record since it was read.
enum class StoredState : std::uint8_t { same, changed, deleted, unreadable };

/// Compares a record as it was read with what is stored now, so that no change made meanwhile gets lost. A record that
/// was not stored yet is the same. What is stored goes into `now` unless it was deleted.
[[nodiscard]] StoredState compareWithStored(Stores& stores, const TimeEntry& read, TimeEntry& now);
[[nodiscard]] StoredState compareWithStored(Stores& stores, const ExpenseEntry& read, ExpenseEntry& now);

} // namespace hourwright::store
