#pragma once

#include <functional>
#include <string_view>
#include <vector>

namespace hourwright::bench {

/// What one measured run cost.
struct Cost {
    double seconds = 0;
    double cpuSeconds = 0; ///< of the processor, which other programs disturb less
    double peakMegabytes = 0;
    bool failed = false;
};

using Work = std::function<Cost()>;

/// What all runs of one work cost.
struct Samples {
    std::vector<double> seconds;
    std::vector<double> cpuSeconds;
    double peakMegabytes = 0;
    bool failed = false;

    void add(const Cost& cost);
};

/// Runs works in turns, so that a slow moment of the machine meets all of them: 3 to 40 rounds, as many as fit into
/// about two seconds; fewer than 3 when they take more than a minute. One that fails ends it.
[[nodiscard]] std::vector<Samples> inTurns(const std::vector<Work>& works);

/// Writes one row of measurements as a line of JSON to standard output. Without `other`, ours stands alone.
void writeRow(std::string_view row, const Samples& ours, const Samples* other = nullptr);

} // namespace hourwright::bench
