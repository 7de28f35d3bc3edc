#include "billing/quick_summary.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "platform/number_text.h"

#include <utility>

namespace hourwright::billing {

using resources::StringId;

std::optional<QuickSummary> quickSummary(store::RecordStore& entries, const EntrySelection& selection,
                                         const TimeRules& rules) {
    QuickSummary summary;
    const bool read = forEachSelected(entries, selection, [&](const store::TimeEntry& entry) {
        ++summary.items;
        summary.hours += hoursOf(entry);
        summary.amount += billableAmountOf(entry, rules);
    });
    return read ? std::optional(summary) : std::nullopt;
}

std::vector<SummaryRow> quickSummaryRows(const QuickSummary& summary, std::u16string periodType,
                                         std::u16string period) {
    const auto label = [](StringId id) { return std::u16string(resources::string(id)); };
    std::u16string items;
    platform::appendInteger(items, static_cast<std::int64_t>(summary.items));
    return {{label(StringId::summaryPeriodType), std::move(periodType)},
            {label(StringId::summaryPeriod), std::move(period)},
            {label(StringId::summaryItems), std::move(items)},
            {label(StringId::summaryHours), hoursText(summary.hours)},
            {label(StringId::summaryAmount), amountText(summary.amount)}};
}

} // namespace hourwright::billing
