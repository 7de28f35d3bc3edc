#pragma once

#include <cstdint>

namespace hourwright::store {

/// Billing status of an entry or expense, as stored.
enum class EntryStatus : std::uint16_t { nonBillable = 0, billable = 1, billed = 2, paid = 3 };

/// Kind of rate that an entry is charged by, as stored. Only `fixed` changes the arithmetic.
enum class RateType : std::uint16_t { normal = 0, overtime = 1, weekend = 2, fixed = 3, discount = 4 };

enum class ExpenseType : std::uint16_t { general = 0, mileage = 1 };

/// Flags words that writers ask for: none for a new record, `changed` for every rewrite of one.
inline constexpr std::uint16_t flagsNew = 0;
inline constexpr std::uint16_t flagsChanged = 3;

/// The flags word after a rewrite: what was asked for and what was there. A record that is marked changed (3) and
/// changed again also gets the bit 4.
[[nodiscard]] constexpr std::uint16_t flagsAfterUpdate(std::uint16_t current, std::uint16_t requested) {
    const auto merged = static_cast<std::uint16_t>(current | requested);
    return merged == 3 && current == 3 ? static_cast<std::uint16_t>(merged | 4) : merged;
}

} // namespace hourwright::store
