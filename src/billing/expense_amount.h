#pragma once

#include "store/expense_entry.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace hourwright::billing {

/// What an expense costs, unrounded, in its currency: the stored amount, or rate times distance for a mileage expense.
[[nodiscard]] double amountOf(const store::ExpenseEntry& expense);

/// Hundredths to store for a typed amount, or rate per distance unit, that has passed the numeric test; an empty text
/// is 0, and digits past the second decimal are cut off. Nothing for a negative one or one that the field cannot hold.
[[nodiscard]] std::optional<std::uint32_t> expenseAmountFromText(std::u16string_view text);

} // namespace hourwright::billing
