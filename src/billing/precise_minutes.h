#pragma once

#include <optional>

namespace hourwright::billing {

/// Minutes that a fraction of an hour stands for when two decimals could not write it exactly: 10, 20, 40 or 50 for
/// exactly 0.17, 0.33, 0.67 or 0.83. The comparison is that of doubles, so a fraction left over from an hour or more
/// (1.33 less 1) is none of them; data have been entered against that, and it stays so.
[[nodiscard]] std::optional<int> preciseMinutes(double fractionOfHour);

} // namespace hourwright::billing
