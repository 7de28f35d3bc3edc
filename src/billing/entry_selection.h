#pragma once

#include "store/date_walk.h"
#include "store/time_entry.h"

#include <functional>
#include <vector>

namespace hourwright::billing {

/// The entries that a summary or a change is for; without `accepts` all entries of the range are meant.
struct EntrySelection {
    store::DateRange range;
    std::function<bool(const store::TimeEntry&)> accepts;
    /// The properties of the fields that `accepts` looks at; none given: it may look at every field.
    std::vector<platform::PropertyId> looksAt{};
};

/// Calls `visit` with each selected entry in date order. False when reading failed.
[[nodiscard]] bool forEachSelected(store::RecordStore& entries, const EntrySelection& selection,
                                   const std::function<void(const store::TimeEntry&)>& visit);

} // namespace hourwright::billing
