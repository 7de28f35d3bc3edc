#pragma once

#include "ratios/samples.h"

#include <string>
#include <vector>

namespace hourwright::bench {

/// Runs a program from start to exit, its output thrown away, and measures wall-clock time and peak memory. Failed when
/// it does not exit with 0.
[[nodiscard]] Cost runChild(const std::vector<std::string>& command);

} // namespace hourwright::bench
