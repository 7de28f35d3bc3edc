#include "cli/record_access.h"

#include "cli/joined.h"

#include <algorithm>
#include <vector>

namespace hourwright::cli {

using store::RecordId;

RecordId recordIdOf(std::string_view text) {
    return RecordId{numberOf(text)};
}

bool seekRecord(Session& session, store::RecordStore& records, RecordId id, std::string_view what) {
    if (records.seek(platform::Seek::toId(id)) != RecordId::none)
        return true;
    if (records.lastError() != platform::PlatformError::noMoreItems)
        session.fail(records.lastError());
    else
        session.fail(platform::PlatformError::invalidParameter,
                     joined({"There is no ", what, " with id ", std::to_string(static_cast<std::uint32_t>(id)), "."}));
    return false;
}

ExitCode
changeRecords(Session& session, const Arguments& arguments, const resources::Text& name, billing::Selected kind,
              const std::function<bool(platform::Transaction&, store::Stores&, std::span<const RecordId>)>& change) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(name);
    if (!transaction)
        return session.failWrite();
    const bool entries = kind == billing::Selected::entries;
    store::RecordStore& records = entries ? stores->entries() : stores->expenses();
    std::vector<RecordId> ids;
    for (const std::string_view text : arguments.positionals()) {
        const RecordId id = recordIdOf(text);
        if (std::ranges::find(ids, id) != ids.end())
            continue;
        if (!seekRecord(session, records, id, entries ? "entry" : "expense"))
            return ExitCode::refused;
        ids.push_back(id);
    }
    return change(*transaction, *stores, ids) && transaction->commit() ? ExitCode::done
                                                                       : session.fail(records.lastError());
}

} // namespace hourwright::cli
