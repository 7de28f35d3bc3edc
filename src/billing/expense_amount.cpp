#include "billing/expense_amount.h"

namespace hourwright::billing {

double amountOf(const store::ExpenseEntry& expense) {
    const double stored = expense.amount / 100.0;
    return expense.type == store::ExpenseType::mileage ? stored * expense.distance : stored;
}

} // namespace hourwright::billing
