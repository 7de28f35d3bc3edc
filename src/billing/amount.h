#pragma once

#include "billing/time_rules.h"
#include "store/time_entry.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// Money of time entries, in the entry's currency.
namespace hourwright::billing {

/// The rate in currency units.
[[nodiscard]] double rateOf(const store::TimeEntry& entry);

/// What an entry costs, unrounded: its rate when that is a fixed one, else hours times rate. With precise minutes on,
/// 0.17, 0.33, 0.67 and 0.83 hours are charged as 10, 20, 40 and 50 minutes.
[[nodiscard]] double amountOf(const store::TimeEntry& entry, const TimeRules& rules);

/// The same for what is to be billed at all: a non-billable entry counts nothing in sums, whatever its rate.
[[nodiscard]] double billableAmountOf(const store::TimeEntry& entry, const TimeRules& rules);

/// Hundredths to store for a typed rate that has passed the numeric test; an empty text is 0, and digits past the
/// second decimal are cut off. Nothing for a negative rate or one that the field cannot hold.
[[nodiscard]] std::optional<std::int32_t> rateFromText(std::u16string_view text);

} // namespace hourwright::billing
