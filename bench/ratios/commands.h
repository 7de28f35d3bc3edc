#pragma once

#include "ratios/child.h"

#include <filesystem>

namespace hourwright::bench {

/// Whole `hwctl` processes, from start to exit, beside the SQLite shell doing the same work on the same file; and the
/// same on a small store, where the cost should be the same.
void measureCommands(const std::filesystem::path& hwctl, const std::filesystem::path& largeHome,
                     const std::filesystem::path& smallHome);

} // namespace hourwright::bench
