#pragma once

#include "billing/time_rules.h"
#include "platform/locale.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <cstddef>
#include <map>
#include <string>

namespace hourwright::app {

/// What the shown records come to: their number, their hours, and money by currency. Sums are of unrounded values;
/// time that is not billable has hours but no amount, an expense has no hours.
struct ViewTotals {
    std::size_t items = 0;
    double hours = 0.0;
    std::map<std::u16string, double> amounts; ///< by currency; a currency without money does not appear

    void add(const store::TimeEntry& entry, const billing::TimeRules& rules);
    void add(const store::ExpenseEntry& expense);

    friend bool operator==(const ViewTotals&, const ViewTotals&) = default;
};

/// The amounts as a line: "1,250.00 USD · 80.00 EUR"; empty without money.
[[nodiscard]] std::u16string amountsText(const ViewTotals& totals, const platform::Locale& locale);

/// Hours with two decimals and unit: "37.50h".
[[nodiscard]] std::u16string hoursText(const ViewTotals& totals, const platform::Locale& locale);

} // namespace hourwright::app
