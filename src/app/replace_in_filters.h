#pragma once

#include "billing/replace_text.h"
#include "platform/registry.h"

namespace hourwright::app {

/// Replaces a text in the stored view filters of time entries and expenses, so that they go on showing the records in
/// which it was replaced. Filters that do not name it are not written. False when one was not stored.
bool replaceInFilters(platform::Registry& registry, const billing::ReplaceRequest& request);

} // namespace hourwright::app
