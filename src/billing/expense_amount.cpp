#include "billing/expense_amount.h"

#include "billing/stored_number.h"
#include "platform/number_text.h"

namespace hourwright::billing {

double amountOf(const store::ExpenseEntry& expense) {
    const double stored = expense.amount / 100.0;
    return expense.type == store::ExpenseType::mileage ? stored * expense.distance : stored;
}

std::optional<std::uint32_t> expenseAmountFromText(std::u16string_view text) {
    return storedFromThousandths(platform::parseDecimal(text) * 1000.0, maxStoredAmount);
}

} // namespace hourwright::billing
