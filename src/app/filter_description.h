#pragma once

#include "app/entry_filter.h"
#include "app/expense_filter.h"

#include <array>
#include <string>

namespace hourwright::app {

/// What a filter shows, in words: "Client Acme, Unpaid only, 11/1/26 – 11/15/26". Empty when it shows everything. The
/// captions are those of the custom fields; dates are the locale's.
[[nodiscard]] std::u16string describeFilter(const EntryFilter& filter, const std::array<std::u16string, 3>& captions,
                                            const platform::Locale& locale);
[[nodiscard]] std::u16string describeFilter(const ExpenseFilter& filter, const std::array<std::u16string, 2>& captions,
                                            const platform::Locale& locale);

/// The names of the statuses by number, as the user reads them.
[[nodiscard]] std::u16string_view statusName(store::EntryStatus status);

} // namespace hourwright::app
