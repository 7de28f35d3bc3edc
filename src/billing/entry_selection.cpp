#include "billing/entry_selection.h"

namespace hourwright::billing {

bool forEachSelected(store::RecordStore& entries, const EntrySelection& selection,
                     const std::function<void(const store::TimeEntry&)>& visit) {
    store::DateWalk walk(entries, selection.range);
    store::TimeEntry entry;
    store::ReadResult result = store::ReadResult::ok;
    while ((result = walk.next(entry)) == store::ReadResult::ok)
        if (!selection.accepts || selection.accepts(entry))
            visit(entry);
    return result == store::ReadResult::noMore;
}

} // namespace hourwright::billing
