#pragma once

#include "billing/summary_breakdown.h"
#include "billing/summary_row.h"
#include "platform/utf.h"

#include <ostream>

namespace hourwright::billing {

inline void PrintTo(const SummaryRow& row, std::ostream* out) {
    *out << row.level << ' ' << platform::toUtf8(row.label) << " = " << platform::toUtf8(row.value);
}

inline void PrintTo(const BreakdownRow& row, std::ostream* out) {
    *out << row.level << ' ' << platform::toUtf8(row.name) << " = " << row.hours << " h";
    for (const auto& [currency, amount] : row.amounts)
        *out << ", " << amount << ' ' << platform::toUtf8(currency);
}

} // namespace hourwright::billing
