#include "billing/bulk_change.h"

#include <algorithm>
#include <span>
#include <vector>

namespace hourwright::billing {

namespace {

using platform::FileTime;
using platform::Transaction;
using store::EntryStatus;
using store::ReadResult;
using store::RecordStore;
using store::TimeEntry;

/// What a change needs of each entry.
using Properties = std::span<const platform::PropertyId>;

// What has to be read for choosing and changing; nothing when it is the whole entry.
std::vector<platform::PropertyId> wantedFor(const EntrySelection& selection, Properties change) {
    if (selection.accepts && selection.looksAt.empty())
        return {};
    std::vector<platform::PropertyId> wanted(change.begin(), change.end());
    for (const platform::PropertyId id : selection.looksAt)
        if (std::ranges::find(wanted, id) == wanted.end())
            wanted.push_back(id);
    return wanted;
}

// Calls `change` with each entry that is selected and what was read of it, until it returns false.
template<typename Change>
std::optional<std::size_t> changeEach(RecordStore& entries, const EntrySelection& selection, Properties needs,
                                      const BulkProgress& progress, Change change) {
    store::DateWalk walk(entries, selection.range, wantedFor(selection, needs), {}, store::WalkPurpose::changing);
    TimeEntry entry;
    std::size_t walked = 0;
    std::size_t changed = 0;
    ReadResult result = ReadResult::ok;
    while ((result = walk.next(entry)) == ReadResult::ok) {
        if (!selection.accepts || selection.accepts(entry)) {
            if (!change(entry, walk.properties()))
                return std::nullopt;
            ++changed;
        }
        if (progress && !progress(++walked))
            return std::nullopt;
    }
    return result == ReadResult::noMore ? std::optional(changed) : std::nullopt;
}

// Gives each entry the status that `mark` chooses, and the time of the change.
template<typename Mark>
std::optional<std::size_t> markEach(Transaction& transaction, RecordStore& entries, const EntrySelection& selection,
                                    FileTime now, const BulkProgress& progress, Mark mark) {
    return changeEach(entries, selection, store::statusProperties(), progress,
                      [&](TimeEntry& entry, const platform::PropertyBuffer& read) {
                          mark(entry);
                          entry.modified = now;
                          return updateStatus(transaction, entries, entry, read);
                      });
}

} // namespace

std::optional<std::size_t> markAllPaid(Transaction& transaction, RecordStore& entries, const EntrySelection& selection,
                                       FileTime paidDate, FileTime now, const BulkProgress& progress) {
    return markEach(transaction, entries, selection, now, progress, [paidDate](TimeEntry& entry) {
        if (entry.status == EntryStatus::billable || entry.status == EntryStatus::billed)
            markPaid(entry, paidDate);
    });
}

std::optional<std::size_t> markAllBilled(Transaction& transaction, RecordStore& entries,
                                         const EntrySelection& selection, FileTime now, const BulkProgress& progress) {
    return markEach(transaction, entries, selection, now, progress, [](TimeEntry& entry) {
        if (entry.status == EntryStatus::billable)
            entry.status = EntryStatus::billed;
    });
}

std::optional<std::size_t> deleteAll(Transaction& transaction, RecordStore& entries, const EntrySelection& selection,
                                     const BulkProgress& progress) {
    return changeEach(entries, selection, {}, progress, [&](const TimeEntry&, const platform::PropertyBuffer&) {
        return entries.deleteCurrent(transaction);
    });
}

} // namespace hourwright::billing
