#pragma once

#include "billing/entry_selection.h"
#include "billing/summary_row.h"
#include "billing/time_rules.h"
#include "store/record_store.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::billing {

/// What the entries of a view come to: sums of unrounded values. Non-billable entries have hours but no amount, as in
/// the list itself.
struct QuickSummary {
    std::size_t items = 0;
    double hours = 0.0;
    double amount = 0.0;

    friend bool operator==(const QuickSummary&, const QuickSummary&) = default;
};

/// Sums up a selection of the open entry store. Nothing when it could not be read.
[[nodiscard]] std::optional<QuickSummary> quickSummary(store::RecordStore& entries, const EntrySelection& selection,
                                                       const TimeRules& rules);

/// The list in which it is shown, below the kind and the dates of the view's period.
[[nodiscard]] std::vector<SummaryRow> quickSummaryRows(const QuickSummary& summary, std::u16string periodType,
                                                       std::u16string period);

} // namespace hourwright::billing
