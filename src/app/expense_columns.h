#pragma once

#include "app/list_column.h"
#include "store/expense_entry.h"

#include <cstddef>
#include <span>
#include <string>

namespace hourwright::app {

using ExpenseColumn = ListColumn<store::ExpenseEntry>;

inline constexpr std::size_t expenseColumnCount = 15;

/// The columns of the expense list by column index. Those that only mileage expenses fill stand behind the first
/// eleven, which lists of earlier versions had.
[[nodiscard]] std::span<const ExpenseColumn, expenseColumnCount> expenseColumns();

/// What the list shows of an expense in a column; empty for a column that does not exist. Odometer and distance are
/// empty for a general expense, the amount of a mileage expense is rate times distance.
[[nodiscard]] std::u16string cellText(const store::ExpenseEntry& expense, std::size_t column,
                                      const platform::Locale& locale);

/// What stands before the expense's row.
[[nodiscard]] RowImage getRowImage(const store::ExpenseEntry& expense);

} // namespace hourwright::app
