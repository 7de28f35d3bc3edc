#pragma once

#include "store/date_walk.h"
#include "store/time_entry.h"

#include <functional>

namespace hourwright::billing {

/// The entries that a summary or a change is for. `accepts` may look at every field of an entry; without it all entries
/// of the range are meant.
struct EntrySelection {
    store::DateRange range;
    std::function<bool(const store::TimeEntry&)> accepts;
};

/// Calls `visit` with each selected entry in date order. False when reading failed.
[[nodiscard]] bool forEachSelected(store::RecordStore& entries, const EntrySelection& selection,
                                   const std::function<void(const store::TimeEntry&)>& visit);

} // namespace hourwright::billing
