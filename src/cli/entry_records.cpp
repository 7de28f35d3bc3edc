#include "cli/entry_records.h"
#include "cli/joined.h"

#include <set>

namespace hourwright::cli {

using store::RecordId;
using store::TimeEntry;

RecordId recordIdOf(std::string_view text) {
    return RecordId{numberOf(text)};
}

bool readEntry(Session& session, store::Stores& stores, RecordId id, TimeEntry& out) {
    store::RecordStore& entries = stores.entries();
    const bool found = entries.seek(platform::Seek::toId(id)) != RecordId::none;
    if (found && store::readTimeEntry(entries, out) == store::ReadResult::ok)
        return true;
    if (found || entries.lastError() != platform::PlatformError::noMoreItems)
        session.failWrite();
    else
        session.fail(platform::PlatformError::invalidParameter,
                     joined({"There is no entry with id ", std::to_string(static_cast<std::uint32_t>(id)), "."}));
    return false;
}

ExitCode forEachEntry(Session& session, const Arguments& arguments,
                      const std::function<bool(platform::Transaction&, store::Stores&, TimeEntry&)>& work) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = stores->objects().begin();
    if (!transaction)
        return session.failWrite();
    std::set<RecordId> done;
    TimeEntry entry;
    for (const std::string_view text : arguments.positionals()) {
        const RecordId id = recordIdOf(text);
        if (!done.insert(id).second)
            continue;
        if (!readEntry(session, *stores, id, entry))
            return ExitCode::refused;
        if (!work(*transaction, *stores, entry))
            return session.failWrite();
    }
    return transaction->commit() ? ExitCode::done : session.failWrite();
}

ExitCode changeEntries(Session& session, const Arguments& arguments, const std::function<void(TimeEntry&)>& change) {
    const auto rewrite = [&](platform::Transaction& transaction, store::Stores& stores, TimeEntry& entry) {
        change(entry);
        entry.modified = session.clock().now();
        return store::updateTimeEntry(transaction, stores.entries(), entry);
    };
    return forEachEntry(session, arguments, rewrite);
}

} // namespace hourwright::cli
