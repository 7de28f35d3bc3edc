#include "billing/amount.h"

#include "billing/duration.h"
#include "billing/precise_minutes.h"
#include "billing/stored_number.h"
#include "platform/number_text.h"

#include <cmath>

namespace hourwright::billing {

double rateOf(const store::TimeEntry& entry) {
    return entry.rate / 100.0;
}

double amountOf(const store::TimeEntry& entry, const TimeRules& rules) {
    const double rate = rateOf(entry);
    if (entry.rateType == store::RateType::fixed)
        return rate;
    const double hours = hoursOf(entry);
    const double whole = std::floor(hours);
    if (const auto minutes = preciseMinutes(hours - whole); rules.preciseMinutes && minutes)
        return whole * rate + *minutes * rate / 60.0;
    return hours * rate;
}

double billableAmountOf(const store::TimeEntry& entry, const TimeRules& rules) {
    return entry.status == store::EntryStatus::nonBillable ? 0.0 : amountOf(entry, rules);
}

std::optional<std::int32_t> rateFromText(std::u16string_view text) {
    return storedFromThousandths(platform::parseDecimal(text) * 1000.0, maxStoredRate);
}

} // namespace hourwright::billing
