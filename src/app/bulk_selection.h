#pragma once

#include "app/entry_filter.h"
#include "app/period.h"
#include "billing/entry_selection.h"

#include <cstdint>

namespace hourwright::app {

/// The entries that a filter with a range of dates picks out for a bulk change; without a range, those of all dates.
/// The selection borrows the locale.
[[nodiscard]] billing::EntrySelection selectionOf(const EntryFilter& criteria, const platform::Locale& userLocale);

/// The entries that a view of a period shows through a filter. The selection borrows the locale.
[[nodiscard]] billing::EntrySelection selectionOf(const Period& period, const EntryFilter& filter,
                                                  const platform::Locale& userLocale);

/// What a bulk change does with the entries that it is for.
enum class BulkKind : std::uint8_t { markBilled, markPaid, remove };

/// What the criteria of a bulk change begin with: the days of the period, and the statuses that it has something to do
/// with; all of them for deletion.
[[nodiscard]] EntryFilter newCriteria(const Period& period, BulkKind kind);

/// The first and last day of a period at 00:00.
[[nodiscard]] platform::SystemTime firstDayOf(const Period& period);
[[nodiscard]] platform::SystemTime lastDayOf(const Period& period);

/// The paid date of entries that were paid on a day: now when that is today, else the day at 00:00.
[[nodiscard]] platform::FileTime paidInstant(const platform::SystemTime& day, const platform::SystemTime& now);

/// False when the last day of a range lies before its first.
[[nodiscard]] bool rangeIsInOrder(const platform::SystemTime& firstDay, const platform::SystemTime& lastDay);

} // namespace hourwright::app
