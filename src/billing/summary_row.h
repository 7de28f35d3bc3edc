#pragma once

#include "resources/strings.h"

#include <string>
#include <string_view>

namespace hourwright::billing {

/// One line of a two-column summary list. An indented row is part of the row without indentation above it.
struct SummaryRow {
    std::u16string label;
    std::u16string value;
    int level = 0; ///< steps of indentation

    friend bool operator==(const SummaryRow&, const SummaryRow&) = default;
};

/// The string of a field's title with a colon behind it.
[[nodiscard]] std::u16string titleLabel(resources::StringId title);

/// Sums as summaries show them: two decimals, hours with their unit.
[[nodiscard]] std::u16string hoursText(double hours);
[[nodiscard]] std::u16string amountText(double amount);

} // namespace hourwright::billing
