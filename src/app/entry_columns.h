#pragma once

#include "billing/time_rules.h"
#include "platform/locale.h"
#include "resources/strings.h"
#include "store/time_entry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace hourwright::app {

/// A column of the time-entry list as it is before any stored layout is applied.
struct EntryColumn {
    resources::StringId title;
    std::uint16_t width; ///< pixels at 96 pixels per inch
    bool alignRight = false;
};

/// The sixteen columns by column index.
[[nodiscard]] std::span<const EntryColumn> entryColumns();

/// What the list shows of an entry in a column; empty for a column that does not exist. Currency, rate, rate type and
/// amount are empty for an entry that is not billable, start and end time for one without a start time.
[[nodiscard]] std::u16string cellText(const store::TimeEntry& entry, std::size_t column, const platform::Locale& locale,
                                      const billing::TimeRules& rules);

} // namespace hourwright::app
