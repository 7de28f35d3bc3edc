#pragma once

#include "app/entry_filter.h"
#include "app/expense_filter.h"
#include "billing/replace_text.h"
#include "platform/registry.h"

namespace hourwright::app {

/// Replaces a text in the stored view filters of time entries and expenses, so that they go on showing the records in
/// which it was replaced. Filters that do not name it are not written. False when one was not stored.
bool replaceInFilters(platform::Registry& registry, const billing::ReplaceRequest& request);

/// The same in a filter that is in use, custom fields included.
void replaceInFilter(EntryFilter& filter, const billing::ReplaceRequest& request);
void replaceInFilter(ExpenseFilter& filter, const billing::ReplaceRequest& request);

} // namespace hourwright::app
