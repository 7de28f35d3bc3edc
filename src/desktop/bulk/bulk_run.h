#pragma once

#include "billing/bulk_change.h"
#include "desktop/workspace.h"

#include <functional>
#include <optional>
#include <string_view>

namespace hourwright::desktop {

/// What a bulk change works with, on its thread.
struct BulkParts {
    platform::Transaction& transaction;
    store::Stores& stores;
    const platform::Locale& locale;
    const billing::BulkProgress& progress;
};

/// A change of many entries: how many it was for, or nothing when it failed or was ended.
using BulkStep = std::function<std::optional<std::size_t>(const BulkParts& parts)>;

/// Runs a bulk change on a thread as one step of undo while a bar shows how far it is, then tells how many entries it
/// was for with the message given, or that it was for none. Failures are shown. Cancelled, it has changed nothing.
void runBulk(Workspace& workspace, QWidget* parent, std::u16string_view undoName, resources::StringId countMessage,
             const BulkStep& step);

/// Tells a number of records.
void tellCount(Workspace& workspace, resources::StringId countMessage, std::size_t count);

} // namespace hourwright::desktop
