#pragma once

#include "billing/entry_selection.h"
#include "platform/file_time.h"
#include "platform/object_store.h"
#include "store/record_store.h"

#include <cstddef>
#include <functional>
#include <optional>

/// Changes of many time entries at once. Each walks the selected entries in date order under the caller's
/// transaction and returns how many it changed, or nothing when reading or writing failed: the entry store's
/// `lastError` says why, and the transaction must not be committed. The same when `progress` ended it.
namespace hourwright::billing {

/// Is told the number of entries that have been looked at, after each of them; false ends the change.
using BulkProgress = std::function<bool(std::size_t walked)>;

/// Makes billable and billed entries paid ones of that date. Every entry that is selected is rewritten with
/// `now` as the time of its change, also those whose status and paid date stay: non-billable and paid ones.
[[nodiscard]] std::optional<std::size_t> markAllPaid(platform::Transaction& transaction, store::RecordStore& entries,
                                                     const EntrySelection& selection, platform::FileTime paidDate,
                                                     platform::FileTime now, const BulkProgress& progress = {});

/// Makes billable entries billed ones; the others keep their status. All are rewritten as above.
[[nodiscard]] std::optional<std::size_t> markAllBilled(platform::Transaction& transaction, store::RecordStore& entries,
                                                       const EntrySelection& selection, platform::FileTime now,
                                                       const BulkProgress& progress = {});

/// Deletes the entries for good.
[[nodiscard]] std::optional<std::size_t> deleteAll(platform::Transaction& transaction, store::RecordStore& entries,
                                                   const EntrySelection& selection, const BulkProgress& progress = {});

} // namespace hourwright::billing
