#pragma once

#include "cli/record_access.h"
#include "store/time_entry.h"

namespace hourwright::cli {

/// Reads the entry with this id and makes its record the current one. False, with the message shown, when there is
/// none.
[[nodiscard]] bool readEntry(Session& session, store::Stores& stores, store::RecordId id, store::TimeEntry& out);

} // namespace hourwright::cli
