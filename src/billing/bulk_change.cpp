#include "billing/bulk_change.h"

namespace hourwright::billing {

namespace {

using platform::FileTime;
using platform::Transaction;
using store::EntryStatus;
using store::ReadResult;
using store::RecordStore;
using store::TimeEntry;

// Calls `change` with each entry that is selected, until it returns false.
template<typename Change>
std::optional<std::size_t> changeEach(RecordStore& entries, const EntrySelection& selection,
                                      const BulkProgress& progress, Change change) {
    store::DateWalk walk(entries, selection.range);
    TimeEntry entry;
    std::size_t walked = 0;
    std::size_t changed = 0;
    ReadResult result = ReadResult::ok;
    while ((result = walk.next(entry)) == ReadResult::ok) {
        if (!selection.accepts || selection.accepts(entry)) {
            if (!change(entry))
                return std::nullopt;
            ++changed;
        }
        if (progress && !progress(++walked))
            return std::nullopt;
    }
    return result == ReadResult::noMore ? std::optional(changed) : std::nullopt;
}

bool rewrite(Transaction& transaction, RecordStore& entries, TimeEntry& entry, FileTime now) {
    entry.modified = now;
    return updateTimeEntry(transaction, entries, entry);
}

} // namespace

std::optional<std::size_t> markAllPaid(Transaction& transaction, RecordStore& entries, const EntrySelection& selection,
                                       FileTime paidDate, FileTime now, const BulkProgress& progress) {
    return changeEach(entries, selection, progress, [&](TimeEntry& entry) {
        if (entry.status == EntryStatus::billable || entry.status == EntryStatus::billed)
            markPaid(entry, paidDate);
        return rewrite(transaction, entries, entry, now);
    });
}

std::optional<std::size_t> markAllBilled(Transaction& transaction, RecordStore& entries,
                                         const EntrySelection& selection, FileTime now, const BulkProgress& progress) {
    return changeEach(entries, selection, progress, [&](TimeEntry& entry) {
        if (entry.status == EntryStatus::billable)
            entry.status = EntryStatus::billed;
        return rewrite(transaction, entries, entry, now);
    });
}

std::optional<std::size_t> deleteAll(Transaction& transaction, RecordStore& entries, const EntrySelection& selection,
                                     const BulkProgress& progress) {
    return changeEach(entries, selection, progress,
                      [&](const TimeEntry&) { return entries.deleteCurrent(transaction); });
}

} // namespace hourwright::billing
