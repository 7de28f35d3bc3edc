#pragma once

#include "ratios/report.h"

#include <string>
#include <vector>

namespace hourwright::bench {

/// Runs a program from start to exit, its output thrown away, and measures wall-clock time and peak memory. `input` is
/// given on standard input. Failed when it does not exit with 0.
[[nodiscard]] Cost runChild(const std::vector<std::string>& command, const std::string& input = {});

} // namespace hourwright::bench
