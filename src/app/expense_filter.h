#pragma once

#include "app/stored_filter_value.h"
#include "app/text_conditions.h"
#include "app/view_filter.h"
#include "platform/locale.h"
#include "platform/registry.h"
#include "store/expense_entry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hourwright::app {

/// Decides which expenses the views show. A value; an empty text means any. The custom fields and the range of dates
/// hold only while the program runs.
struct ExpenseFilter : ViewFilter {
    static constexpr std::int16_t anyType = -1;
    static constexpr std::uint32_t withoutReceipt = 0;
    static constexpr std::uint32_t withReceipt = 1;
    static constexpr std::uint32_t anyReceipt = 2;

    std::u16string client;
    std::u16string project;
    std::u16string category;
    std::u16string currency;
    std::u16string billTo;
    std::u16string custom1;
    std::u16string custom2;
    std::int16_t type = anyType;        ///< number of the `store::ExpenseType` to show
    std::uint32_t receipt = anyReceipt; ///< a number that is none of the three above means any

    /// The stored filter, without custom fields and range. Never fails: what cannot be read passes everything. It
    /// creates the settings' key when there is none, so the settings, which look for it, are to be loaded before.
    [[nodiscard]] static ExpenseFilter load(platform::Registry& registry);

    /// Stores the filter without custom fields and range, all of it or nothing; false when it was not stored.
    bool save(platform::Registry& registry) const;

    /// What saving writes, in its order; empty texts, which it only removes, are included.
    [[nodiscard]] std::vector<StoredFilterValue> storedValues() const;

    /// True when the expense is to be shown; see `ExpenseMatcher` for many expenses.
    [[nodiscard]] bool matches(const store::ExpenseEntry& expense, const platform::Locale& userLocale) const;

    /// "Show All": passes every expense.
    void showAll() { *this = ExpenseFilter{}; }

    friend bool operator==(const ExpenseFilter&, const ExpenseFilter&) = default;
};

/// A filter made ready for many expenses. It copies the filter and borrows the locale, which compares texts.
class ExpenseMatcher {
public:
    ExpenseMatcher(const ExpenseFilter& filter, const platform::Locale& userLocale);

    [[nodiscard]] bool matches(const store::ExpenseEntry& expense) const;

private:
    [[nodiscard]] bool typeMatches(const store::ExpenseEntry& expense) const;
    [[nodiscard]] bool receiptMatches(const store::ExpenseEntry& expense) const;

    ViewFilter common_;
    FilterRange range_;
    std::int16_t type_;
    std::uint32_t receipt_;
    TextConditions<store::ExpenseEntry> texts_;
};

} // namespace hourwright::app
