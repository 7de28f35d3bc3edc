#pragma once

#include "desktop/workspace.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <string_view>

namespace hourwright::desktop {

/// Stores an edited record. What another program changed since it was `opened` is kept; where both have changed the
/// same, or the record is gone, the user is asked. The record gets its id and the time of the change, and is what was
/// stored. False when nothing was stored; a failure has been shown.
[[nodiscard]] bool saveRecord(Workspace& workspace, std::u16string_view undoName, store::TimeEntry& entry,
                              const store::TimeEntry& opened);
[[nodiscard]] bool saveRecord(Workspace& workspace, std::u16string_view undoName, store::ExpenseEntry& expense,
                              const store::ExpenseEntry& opened);

} // namespace hourwright::desktop
