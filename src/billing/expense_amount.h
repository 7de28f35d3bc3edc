#pragma once

#include "store/expense_entry.h"

namespace hourwright::billing {

/// What an expense costs, unrounded, in its currency: the stored amount, or rate times distance for a mileage expense.
[[nodiscard]] double amountOf(const store::ExpenseEntry& expense);

} // namespace hourwright::billing
