#pragma once

#include "store/expense_entry.h"
#include "store/stores.h"
#include "store/time_entry.h"

namespace hourwright::store {

/// Saves an entry as the user does: a new record, or a rewrite of the one it has, and its texts are learned: those of
/// an entry by its client, if that is known, and all by the pick lists. The caller has set `modified`. False when
/// anything was not written; the transaction must not be committed then. When the record itself was refused, the entry
/// store's `lastError` says why.
[[nodiscard]] bool saveTimeEntry(platform::Transaction& transaction, Stores& stores, TimeEntry& entry);
[[nodiscard]] bool saveExpenseEntry(platform::Transaction& transaction, Stores& stores, ExpenseEntry& expense);

} // namespace hourwright::store
