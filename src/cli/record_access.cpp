#include "cli/record_access.h"

#include "cli/joined.h"

#include <set>

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
forEachRecordId(Session& session, const Arguments& arguments, const resources::Text& name,
                const std::function<std::optional<ExitCode>(platform::Transaction&, store::Stores&, RecordId)>& work) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(name);
    if (!transaction)
        return session.failWrite();
    std::set<RecordId> done;
    for (const std::string_view text : arguments.positionals()) {
        const RecordId id = recordIdOf(text);
        if (!done.insert(id).second)
            continue;
        if (const auto failure = work(*transaction, *stores, id))
            return *failure;
    }
    return transaction->commit() ? ExitCode::done : session.failWrite();
}

} // namespace hourwright::cli
