#pragma once

#include "billing/summary_row.h"
#include "billing/time_rules.h"
#include "platform/file_time.h"
#include "platform/locale.h"
#include "store/record_store.h"
#include "store/time_entry.h"

#include <optional>
#include <string>
#include <vector>

namespace hourwright::billing {

/// Whose time is summed up: a client's, or that of one project or task of it. Names are compared exactly.
struct SummaryScope {
    std::u16string client;
    std::u16string project; ///< empty: any
    std::u16string task;    ///< empty: any
};

/// All time recorded for a scope, by billing status; sums of unrounded values. Billable hours are those of every status
/// but non-billable, so billed and paid hours are part of them. The unpaid amount is that of billable and billed
/// entries; the billed amount is part of it. Non-billable time has no amount.
struct Summary {
    std::optional<platform::FileTime> firstDate; ///< nothing: no entry
    std::optional<platform::FileTime> lastDate;
    double billableHours = 0.0;
    double billedHours = 0.0;
    double paidHours = 0.0;
    double nonBillableHours = 0.0;
    double unpaidAmount = 0.0;
    double billedAmount = 0.0;
    double paidAmount = 0.0;

    friend bool operator==(const Summary&, const Summary&) = default;
};

/// Adds one entry's hours and amount; the dates are the caller's.
void addToSummary(Summary& summary, const store::TimeEntry& entry, const TimeRules& rules);

/// Sums up the open entry store in one walk. Nothing when it could not be read.
[[nodiscard]] std::optional<Summary> summarize(store::RecordStore& entries, const SummaryScope& scope,
                                               const TimeRules& rules);

/// The two-column list in which a summary is shown. Without entries the dates are empty and the sums zero.
[[nodiscard]] std::vector<SummaryRow> summaryRows(const Summary& summary, const SummaryScope& scope,
                                                  const platform::Locale& locale);

} // namespace hourwright::billing
