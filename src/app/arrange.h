#pragma once

#include "platform/locale.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::app {

/// A choice of the menu "Arrange By"; its number, which is stored, is its place in the table. Records are sorted by a
/// text, then by date, then by a second text, all ascending.
template<typename Record>
struct ArrangeChoice {
    std::string_view name;      ///< for scripts
    std::u16string Record::*by; ///< null: the order of the store, by date
};

inline constexpr std::array<ArrangeChoice<store::TimeEntry>, 9> entryArrangements{{
    {"default", nullptr},
    {"client", &store::TimeEntry::client},
    {"project", &store::TimeEntry::project},
    {"phase", &store::TimeEntry::phase},
    {"task", &store::TimeEntry::task},
    {"bill-to", &store::TimeEntry::billTo},
    {"custom1", &store::TimeEntry::custom1},
    {"custom2", &store::TimeEntry::custom2},
    {"custom3", &store::TimeEntry::custom3},
}};

inline constexpr std::array<ArrangeChoice<store::ExpenseEntry>, 8> expenseArrangements{{
    {"default", nullptr},
    {"client", &store::ExpenseEntry::client},
    {"project", &store::ExpenseEntry::project},
    {"category", &store::ExpenseEntry::category},
    {"description", &store::ExpenseEntry::description},
    {"bill-to", &store::ExpenseEntry::billTo},
    {"custom1", &store::ExpenseEntry::custom1},
    {"custom2", &store::ExpenseEntry::custom2},
}};

/// What of a row its place depends on. The texts are borrowed.
struct ArrangeRow {
    std::u16string_view text;
    platform::FileTime date;
    std::u16string_view second;
};

/// The order of rows by text, date and second text, as the locale compares texts with regard to case: the index of the
/// row that comes first, and so on. Rows that are equal in all three keep their order.
[[nodiscard]] std::vector<std::size_t> arrangedOrder(std::span<const ArrangeRow> rows,
                                                     const platform::Locale& userLocale);

/// Sorts entries, which come in the order of the store, by a choice of `entryArrangements`; on the same date the task
/// decides. A number that is no choice leaves them as they are.
void arrange(std::vector<store::TimeEntry>& entries, std::uint16_t choice, const platform::Locale& userLocale);

/// Sorts expenses by a choice of `expenseArrangements`; on the same date the description decides.
void arrange(std::vector<store::ExpenseEntry>& expenses, std::uint16_t choice, const platform::Locale& userLocale);

} // namespace hourwright::app
