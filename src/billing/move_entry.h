#pragma once

#include "billing/entry_draft.h"
#include "billing/time_rules.h"
#include "platform/file_time.h"
#include "store/stores.h"
#include "store/time_entry.h"

#include <optional>

namespace hourwright::billing {

/// Where an entry is to be placed in time.
struct EntryPlace {
    platform::SystemTime day;                  ///< year, month and day count
    std::optional<platform::SystemTime> start; ///< hour and minute count; absent: the entry has no start time
    std::optional<platform::SystemTime> end;   ///< date, hour and minute count; absent: duration and break stay

    friend bool operator==(const EntryPlace&, const EntryPlace&) = default;
};

/// Places an entry: with an end its duration becomes the time between less its break, by the rule of start, break and
/// end times: cut off to hundredths, raised to the granularity when that is on. Some ends are shown a minute early
/// therefore. Returns why not, with the entry unchanged: an invalid date, or error 87 for an end without a start, or
/// for a duration that is negative or too large.
[[nodiscard]] std::optional<DraftRefusal> placeEntry(const EntryPlace& place, const TimeRules& rules,
                                                     store::TimeEntry& entry);

/// Places the stored entry of an id, read anew, with `now` as the time of its change. False when it is gone, was
/// refused or could not be written: the entry store's `lastError` says why.
[[nodiscard]] bool placeStoredEntry(platform::Transaction& transaction, store::Stores& stores, store::RecordId id,
                                    const EntryPlace& place, const TimeRules& rules, platform::FileTime now);

} // namespace hourwright::billing
