#include "ratios/samples.h"

#include <algorithm>
#include <cstdio>

namespace hourwright::bench {

namespace {

constexpr double budgetSeconds = 2;
constexpr double longestSeconds = 60;
constexpr int fewestRounds = 3;
constexpr int mostRounds = 40;

// Runs each once; the seconds of all, nothing when one failed.
double round(const std::vector<Work>& works, std::vector<Samples>& results) {
    double taken = 0;
    for (std::size_t i = 0; i < works.size(); ++i) {
        const Cost cost = works[i]();
        results[i].add(cost);
        taken += cost.seconds;
    }
    return std::ranges::any_of(results, &Samples::failed) ? 0 : taken;
}

void writeSeconds(const char* key, const std::vector<double>& seconds) {
    std::printf(", \"%s\": [", key);
    for (std::size_t i = 0; i < seconds.size(); ++i)
        std::printf("%s%.6f", i == 0 ? "" : ", ", seconds[i]);
    std::printf("]");
}

} // namespace

void Samples::add(const Cost& cost) {
    seconds.push_back(cost.seconds);
    cpuSeconds.push_back(cost.cpuSeconds);
    peakMegabytes = std::max(peakMegabytes, cost.peakMegabytes);
    failed |= cost.failed;
}

std::vector<Samples> inTurns(const std::vector<Work>& works) {
    std::vector<Samples> results(works.size());
    double taken = 0;
    for (int rounds = 0;
         rounds < mostRounds && taken < longestSeconds && (rounds < fewestRounds || taken < budgetSeconds); ++rounds) {
        const double seconds = round(works, results);
        if (seconds == 0)
            break;
        taken += seconds;
    }
    return results;
}

void writeRow(std::string_view row, const Samples& ours, const Samples* other) {
    std::printf("{\"row\": \"%.*s\"", static_cast<int>(row.size()), row.data());
    writeSeconds("ours", ours.seconds);
    writeSeconds("ours cpu", ours.cpuSeconds);
    if (other != nullptr) {
        writeSeconds("other", other->seconds);
        writeSeconds("other cpu", other->cpuSeconds);
    }
    const bool failed = ours.failed || (other != nullptr && other->failed);
    std::printf(", \"mb\": %.1f, \"failed\": %s}\n", ours.peakMegabytes, failed ? "true" : "false");
    std::fflush(stdout);
}

} // namespace hourwright::bench
