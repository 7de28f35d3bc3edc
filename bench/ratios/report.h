#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace hourwright::bench {

/// What one measured run cost.
struct Cost {
    double seconds = 0;
    double peakMegabytes = 0; ///< of a measured process; 0 for work within this one
    bool failed = false;
};

/// The best of several runs: what disturbs a run only ever makes it slower.
[[nodiscard]] Cost best(int runs, const std::function<Cost()>& run);

/// The cost of two things done in turns, so that a slow moment of the machine meets both. Best of `runs` each.
struct Pair {
    Cost ours;
    Cost raw;
};
[[nodiscard]] Pair bestInTurns(int runs, const std::function<Cost()>& ours, const std::function<Cost()>& raw);

/// Seconds that a function takes, as a cost.
[[nodiscard]] Cost timed(const std::function<void()>& work);

/// Prints the table's head, and one line: operation, ours, the other, ratio and the ratio to stay below (0: none).
void printHead(std::string_view title);
void printRow(std::string_view operation, const Pair& pair, double limit);
/// A figure that is not a ratio of two: value, unit and limit.
void printFigure(std::string_view operation, double value, std::string_view unit, double limit);

} // namespace hourwright::bench
