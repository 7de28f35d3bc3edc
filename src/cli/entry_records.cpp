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

ExitCode forEachEntry(Session& session, const Arguments& arguments, const resources::Text& name,
                      const std::function<bool(platform::Transaction&, store::Stores&, TimeEntry&)>& work) {
    TimeEntry entry;
    const auto workOn = [&](platform::Transaction& transaction, store::Stores& stores,
                            RecordId id) -> std::optional<ExitCode> {
        if (!readEntry(session, stores, id, entry))
            return ExitCode::refused;
        return work(transaction, stores, entry) ? std::nullopt : std::optional(session.failWrite());
    };
    return forEachRecordId(session, arguments, name, workOn);
}

ExitCode changeEntries(Session& session, const Arguments& arguments, const resources::Text& name,
                       const std::function<void(TimeEntry&)>& change) {
    const auto rewrite = [&](platform::Transaction& transaction, store::Stores& stores, TimeEntry& entry) {
        change(entry);
        entry.modified = session.clock().now();
        return store::updateTimeEntry(transaction, stores.entries(), entry);
    };
    return forEachEntry(session, arguments, name, rewrite);
}

} // namespace hourwright::cli
