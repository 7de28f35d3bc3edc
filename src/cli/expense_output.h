#pragma once

#include "cli/session.h"
#include "cli/text_table.h"
#include "platform/locale.h"
#include "store/expense_entry.h"
#include "store/stores.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// Reading and printing expenses.
namespace hourwright::cli {

/// Reads the expense with this id and makes its record the current one. False, with the message shown, when there is
/// none.
[[nodiscard]] bool readExpense(Session& session, store::Stores& stores, store::RecordId id, store::ExpenseEntry& out);

/// The cells of an expense for people, and their titles: record id and status, then the expense list's columns with
/// these indexes.
[[nodiscard]] std::vector<std::string> expenseCells(const store::ExpenseEntry& expense,
                                                    std::span<const std::uint32_t> columns,
                                                    const platform::Locale& locale);
[[nodiscard]] std::vector<TableColumn> expenseCellTitles(std::span<const std::uint32_t> columns);

} // namespace hourwright::cli
