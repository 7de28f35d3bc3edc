#pragma once

#include "ratios/homes.h"

namespace hourwright::bench {

/// The window's whole process from start until its first paint, beside a window of the toolkit with nothing in it.
void measureStart(const Bench& bench, const std::filesystem::path& window, const std::filesystem::path& emptyWindow);

} // namespace hourwright::bench
