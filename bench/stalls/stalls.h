#pragma once

#include "stalls/window_home.h"

namespace hourwright::bench {

/// Drives the main window through long changes, searches and exports of all its entries, and prints for each how long
/// it took until the view showed the outcome, and the longest time for which the window did not react meanwhile. Of
/// several runs the best counts: what disturbs a run only ever makes it slower.
void measureStalls(WindowHome& home, int runs);

} // namespace hourwright::bench
