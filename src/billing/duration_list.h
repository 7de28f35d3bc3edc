#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hourwright::billing {

/// The durations offered for choice, as texts in hours: every step up to 12 hours. The index names the step: 0 is 10
/// minutes, 1 is 15, 2 is 20, 3 is 30 and 4 is 6; any other counts as 3.
[[nodiscard]] std::vector<std::u16string> durationList(std::uint16_t stepIndex);

} // namespace hourwright::billing
