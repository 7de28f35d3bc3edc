#include "ratios/report.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace hourwright::bench {

namespace {

void keepBest(Cost& best, const Cost& run) {
    if (run.failed)
        best.failed = true;
    best.peakMegabytes = std::max(best.peakMegabytes, run.peakMegabytes);
    if (best.seconds == 0 || run.seconds < best.seconds)
        best.seconds = run.seconds;
}

std::string duration(double seconds) {
    char text[32];
    if (seconds < 1)
        std::snprintf(text, sizeof text, "%9.2f ms", seconds * 1e3);
    else
        std::snprintf(text, sizeof text, "%9.2f s ", seconds);
    return text;
}

const char* verdict(double value, double limit) {
    if (limit == 0)
        return "";
    return value <= limit ? "ok" : "OVER";
}

} // namespace

Cost best(int runs, const std::function<Cost()>& run) {
    Cost result;
    for (int i = 0; i < runs; ++i)
        keepBest(result, run());
    return result;
}

Pair bestInTurns(int runs, const std::function<Cost()>& ours, const std::function<Cost()>& raw) {
    Pair result;
    for (int i = 0; i < runs; ++i) {
        keepBest(result.ours, ours());
        keepBest(result.raw, raw());
    }
    return result;
}

Cost timed(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return {.seconds = taken.count()};
}

void printHead(std::string_view title) {
    std::printf("\n%.*s\n%-44s %12s %12s %7s %7s %9s\n", static_cast<int>(title.size()), title.data(), "operation",
                "ours", "other", "ratio", "limit", "memory");
}

void printRow(std::string_view operation, const Pair& pair, double limit) {
    if (pair.ours.failed || pair.raw.failed) {
        std::printf("%-44.*s FAILED\n", static_cast<int>(operation.size()), operation.data());
        return;
    }
    const double ratio = pair.ours.seconds / pair.raw.seconds;
    std::printf("%-44.*s %12s %12s %7.2f %7.2f %6.1f MB %s\n", static_cast<int>(operation.size()), operation.data(),
                duration(pair.ours.seconds).c_str(), duration(pair.raw.seconds).c_str(), ratio, limit,
                pair.ours.peakMegabytes, verdict(ratio, limit));
    std::fflush(stdout);
}

void printFigure(std::string_view operation, double value, std::string_view unit, double limit) {
    std::printf("%-44.*s %12.2f %-12.*s %15.2f %12s\n", static_cast<int>(operation.size()), operation.data(), value,
                static_cast<int>(unit.size()), unit.data(), limit, verdict(value, limit));
    std::fflush(stdout);
}

} // namespace hourwright::bench
