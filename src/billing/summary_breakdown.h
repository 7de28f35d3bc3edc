#pragma once

#include "billing/entry_selection.h"
#include "billing/time_rules.h"
#include "platform/locale.h"
#include "store/record_store.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::billing {

/// Money by currency; a currency without money does not appear.
using Amounts = std::map<std::u16string, double>;

/// One line of a breakdown: a client (level 0), a project of it (1) or a task of that (2), each with the sums of all
/// that stands below it. Entries without project or task are those of the empty name.
struct BreakdownRow {
    std::u16string name;
    int level = 0;
    double hours = 0.0;
    Amounts amounts; ///< without non-billable entries

    friend bool operator==(const BreakdownRow&, const BreakdownRow&) = default;
};

/// The hours and amounts of a view by client, project and task: a tree, written from the top, names in the locale's
/// order. Sums are those of unrounded values.
struct Breakdown {
    double hours = 0.0;
    Amounts amounts;
    std::vector<BreakdownRow> rows;
};

/// Breaks down a selection of the open entry store. Nothing when it could not be read.
[[nodiscard]] std::optional<Breakdown> breakDown(store::RecordStore& entries, const EntrySelection& selection,
                                                 const TimeRules& rules, const platform::Locale& locale);

/// A part of a whole, 0 to 1; 0 of nothing.
[[nodiscard]] double partOf(double part, double whole);

/// The part of all amounts in its currency that an amount is; 0 without money. Nothing for amounts in several
/// currencies, which make no sum.
[[nodiscard]] std::optional<double> partOf(const Amounts& part, const Amounts& whole);

/// A part (0 to 1) as a percentage with one decimal, "37.5%".
[[nodiscard]] std::u16string percentText(double part);

} // namespace hourwright::billing
