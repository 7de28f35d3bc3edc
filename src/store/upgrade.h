#pragma once

#include "store/stores.h"

namespace hourwright::store {

/// True when any time entry is stored as an earlier version wrote it.
[[nodiscard]] bool needsUpgrade(Stores& stores);

/// Stores the time entries that an earlier version wrote in today's form, all of them or none; what reading them gives
/// stays the same. Entries that are in today's form already, and all expenses, are not touched. Returns why it failed.
[[nodiscard]] platform::PlatformError upgradeRecords(Stores& stores);

} // namespace hourwright::store
