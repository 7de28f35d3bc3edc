#pragma once

#include "ratios/homes.h"

namespace hourwright::bench {

/// Whole `hwctl` processes, from start to exit, beside the SQLite shell doing the same work on the same file; some
/// beside the same on a small store, where the cost should be the same. Each writes its rows.
void measureAdd(const Bench& bench);
void measureWeek(const Bench& bench);
void measureExports(const Bench& bench);
void measureFilters(const Bench& bench);
void measureSummary(const Bench& bench);
void measureBulk(const Bench& bench);

/// What is measured of stores of very different sizes: an entry added, a week listed, all exported, a summary.
void measureGrowth(const Bench& bench);

} // namespace hourwright::bench
