#pragma once

#include "cli/record_access.h"
#include "store/time_entry.h"

#include <functional>

namespace hourwright::cli {

/// Reads the entry with this id and makes its record the current one. False, with the message shown, when there is
/// none.
[[nodiscard]] bool readEntry(Session& session, store::Stores& stores, store::RecordId id, store::TimeEntry& out);

/// Works on each entry that the positional arguments name, once each and in one transaction: the first failure, or an
/// id that is no entry's, takes everything back. The entry's record is the current one when `work` is called.
[[nodiscard]] ExitCode
forEachEntry(Session& session, const Arguments& arguments, const resources::Text& name,
             const std::function<bool(platform::Transaction&, store::Stores&, store::TimeEntry&)>& work);

/// Changes each entry that the positional arguments name and rewrites it, all or none.
[[nodiscard]] ExitCode changeEntries(Session& session, const Arguments& arguments, const resources::Text& name,
                                     const std::function<void(store::TimeEntry&)>& change);

} // namespace hourwright::cli
