#pragma once

#include "app/list_column.h"
#include "store/time_entry.h"

#include <cstddef>
#include <span>
#include <string>

namespace hourwright::app {

using EntryColumn = ListColumn<store::TimeEntry>;

inline constexpr std::size_t entryColumnCount = 16;

/// The columns of the time-entry list by column index.
[[nodiscard]] std::span<const EntryColumn, entryColumnCount> entryColumns();

/// What the list shows of an entry in a column; empty for a column that does not exist. Currency, rate, rate type and
/// amount are empty for an entry that is not billable, start and end time for one without a start time. The end time
/// leaves the break out.
[[nodiscard]] std::u16string cellText(const store::TimeEntry& entry, std::size_t column, const platform::Locale& locale,
                                      const billing::TimeRules& rules);

/// What stands before the entry's row.
[[nodiscard]] RowImage getRowImage(const store::TimeEntry& entry);

} // namespace hourwright::app
