#include "cli/entry_records.h"

namespace hourwright::cli {

using store::RecordId;
using store::TimeEntry;

bool readEntry(Session& session, store::Stores& stores, RecordId id, TimeEntry& out) {
    store::RecordStore& entries = stores.entries();
    if (!seekRecord(session, entries, id, "entry"))
        return false;
    if (store::readTimeEntry(entries, out) == store::ReadResult::ok)
        return true;
    session.failWrite();
    return false;
}

} // namespace hourwright::cli
