#pragma once

#include "cli/environment.h"

#include <span>
#include <string_view>

namespace hourwright::cli {

/// Runs one command line, without the program's name, and returns the process's exit code: 0 done, 1 refused or
/// failed, 2 wrong usage.
[[nodiscard]] int run(std::span<const std::string_view> words, Environment& environment);

} // namespace hourwright::cli
