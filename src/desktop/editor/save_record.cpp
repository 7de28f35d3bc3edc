#include "desktop/editor/save_record.h"

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

// Makes `expected` what may be overwritten. False when the user does not want that.
template<typename Record>
bool agree(Workspace& workspace, StoredState state, const Record& now, Record& record, Record& expected) {
    if (state == StoredState::changed) {
        expected = now;
        return workspace.messages().ask(StringId::recordChangedMeanwhile);
    }
    record.id = store::RecordId::none;
    expected = Record{};
    return workspace.messages().ask(StringId::recordDeletedMeanwhile, platform::Icon::warning, platform::Answer::yes);
}

// The store is locked while it is looked at and written, but never while the user is asked: what was agreed upon is
// looked at again.
template<typename Record>
bool save(Workspace& workspace, std::u16string_view undoName, Record& record, const Record& opened) {
    Record expected = opened;
    while (true) {
        StoredState state = StoredState::same;
        Record now;
        Record written = record;
        written.modified = workspace.clock().now();
        const bool done = workspace.change(undoName, [&](platform::Transaction& transaction) {
            state = store::compareWithStored(workspace.stores(), expected, now);
            if (state == StoredState::same)
                return write(transaction, workspace.stores(), written);
            return state != StoredState::unreadable;
        });
        if (!done)
            return false;
        if (state == StoredState::same) {
            record = written;
            return true;
        }
        if (!agree(workspace, state, now, record, expected))
            return false;
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
