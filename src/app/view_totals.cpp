#include "app/view_totals.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "billing/expense_amount.h"
#include "billing/summary_row.h"

namespace hourwright::app {

void ViewTotals::add(const store::TimeEntry& entry, const billing::TimeRules& rules) {
    ++items;
    hours += billing::hoursOf(entry);
    if (const double amount = billing::billableAmountOf(entry, rules); amount != 0.0)
        amounts[entry.currency] += amount;
}

void ViewTotals::add(const store::ExpenseEntry& expense) {
    ++items;
    if (const double amount = billing::amountOf(expense); amount != 0.0)
        amounts[expense.currency] += amount;
}

std::u16string amountsText(const ViewTotals& totals, const platform::Locale& locale) {
    std::u16string text;
    for (const auto& [currency, amount] : totals.amounts) {
        if (!text.empty())
            text += u" · ";
        text += locale.number(billing::amountText(amount));
        if (!currency.empty())
            text += u' ' + currency;
    }
    return text;
}

std::u16string hoursText(const ViewTotals& totals, const platform::Locale& locale) {
    return locale.number(billing::amountText(totals.hours)) + u'h';
}

} // namespace hourwright::app
