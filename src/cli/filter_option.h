#pragma once

#include "app/entry_filter.h"
#include "app/expense_filter.h"
#include "cli/session.h"

#include <optional>

namespace hourwright::cli {

/// The stored filters.
[[nodiscard]] app::EntryFilter savedEntryFilter(Session& session);
[[nodiscard]] app::ExpenseFilter savedExpenseFilter(Session& session);

/// The filter that the FILTER options describe, of time entries or of expenses. Nothing, with the message shown, for a
/// day that cannot be stored.
[[nodiscard]] std::optional<app::EntryFilter> entryFilterOption(Session& session, const Arguments& arguments);
[[nodiscard]] std::optional<app::ExpenseFilter> expenseFilterOption(Session& session, const Arguments& arguments);

/// The first option given that the filter of the other kind of record has alone; null when there is none.
[[nodiscard]] const OptionSpec* foreignFilterOption(const Arguments& arguments, bool expenses);

} // namespace hourwright::cli
