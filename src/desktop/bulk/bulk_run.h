#pragma once

#include "billing/bulk_change.h"
#include "desktop/workspace.h"

#include <functional>
#include <optional>
#include <string_view>

namespace hourwright::desktop {

/// A change of many entries under a transaction: how many it was for, or nothing when it failed.
using BulkStep = std::function<std::optional<std::size_t>(platform::Transaction& transaction,
                                                          const billing::BulkProgress& progress)>;

/// Runs a bulk change as one step of undo while a bar shows that it goes on, then tells how many entries it was for
/// with the message given, or that it was for none. Failures are shown.
void runBulk(Workspace& workspace, QWidget* parent, std::u16string_view undoName, resources::StringId countMessage,
             const BulkStep& step);

/// Tells a number of records.
void tellCount(Workspace& workspace, resources::StringId countMessage, std::size_t count);

} // namespace hourwright::desktop
