#include "desktop/editor/save_record.h"

#include "billing/record_merge.h"
#include "store/read_record.h"
#include "store/save.h"

namespace hourwright::desktop {

namespace {

using resources::StringId;
using store::StoredState;

bool write(platform::Transaction& transaction, store::Stores& stores, store::TimeEntry& entry) {
    return store::saveTimeEntry(transaction, stores, entry);
}

bool write(platform::Transaction& transaction, store::Stores& stores, store::ExpenseEntry& expense) {
    return store::saveExpenseEntry(transaction, stores, expense);
}

// What one attempt found.
template<typename Record>
struct Attempt {
    StoredState state = StoredState::same;
    Record now;     // as stored
    Record written; // with what somebody else has changed meanwhile
};

// Under the transaction: writes unless that would lose what somebody else has changed. False for a failure.
template<typename Record>
bool tryToWrite(platform::Transaction& transaction, Workspace& workspace, const Record& base,
                Attempt<Record>& attempt) {
    attempt.state = store::compareWithStored(workspace.stores(), base, attempt.now);
    if (attempt.state == StoredState::changed) {
        auto merged = billing::mergeRecords(base, attempt.written, attempt.now);
        attempt.written = std::move(merged.record);
        if (!merged.collides)
            attempt.state = StoredState::same;
    }
    attempt.written.modified = workspace.clock().now();
    if (attempt.state == StoredState::same)
        return write(transaction, workspace.stores(), attempt.written);
    return attempt.state != StoredState::unreadable;
}

bool askToOverwrite(Workspace& workspace, StoredState state) {
    if (state == StoredState::changed)
        return workspace.messages().ask(StringId::recordChangedMeanwhile);
    return workspace.messages().ask(StringId::recordDeletedMeanwhile, platform::Icon::warning, platform::Answer::yes);
}

// The store is locked while it is looked at and written, but never while the user is asked: what was agreed upon is
// looked at again.
template<typename Record>
bool save(Workspace& workspace, std::u16string_view undoName, Record& record, const Record& opened) {
    Record base = opened;
    Record edited = record;
    while (true) {
        Attempt<Record> attempt{.written = edited};
        const bool done = workspace.change(undoName, [&](platform::Transaction& transaction) {
            return tryToWrite(transaction, workspace, base, attempt);
        });
        if (!done)
            return false;
        if (attempt.state == StoredState::same) {
            record = std::move(attempt.written);
            return true;
        }
        if (!askToOverwrite(workspace, attempt.state))
            return false;
        const bool changed = attempt.state == StoredState::changed;
        base = changed ? std::move(attempt.now) : Record{};
        edited = std::move(attempt.written);
        if (!changed)
            edited.id = store::RecordId::none;
    }
}

} // namespace

bool saveRecord(Workspace& workspace, std::u16string_view undoName, store::TimeEntry& entry,
                const store::TimeEntry& opened) {
    return save(workspace, undoName, entry, opened);
}

bool saveRecord(Workspace& workspace, std::u16string_view undoName, store::ExpenseEntry& expense,
                const store::ExpenseEntry& opened) {
    return save(workspace, undoName, expense, opened);
}

} // namespace hourwright::desktop
