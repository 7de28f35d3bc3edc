#include "ratios/commands.h"
#include "ratios/start.h"

#include <cstdio>
#include <string_view>

using namespace hourwright::bench;

namespace {

constexpr const char* usage = "usage: hourwright_ratios make HWCTL HOME ENTRIES\n"
                              "       hourwright_ratios compare HWCTL HOME SMALLHOME WINDOW EMPTYWINDOW\n"
                              "       hourwright_ratios growth HWCTL HOME\n";

// Fills a home that is empty yet.
void make(const Bench& bench, const char* entries) {
    Samples once;
    once.add(hwctl(bench, bench.large, {"demo", "--entries", entries}));
    writeRow("demo", once);
}

void compare(const Bench& bench, const char* window, const char* emptyWindow) {
    measureAdd(bench);
    measureWeek(bench);
    measureExports(bench);
    measureFilters(bench);
    measureSummary(bench);
    measureBulk(bench);
    measureStart(bench, window, emptyWindow);
}

} // namespace

// Measures whole processes and writes lines of JSON. Homes that are compared are copied first.
int main(int argc, char** argv) {
    const std::string_view mode = argc < 4 ? "" : argv[1];
    if (!(mode == "make" && argc == 5) && !(mode == "compare" && argc == 7) && !(mode == "growth" && argc == 4)) {
        std::fputs(usage, stderr);
        return 2;
    }
    Bench bench{.hwctl = argv[2], .folder = std::filesystem::path(argv[3]).parent_path(), .large = argv[3]};
    if (mode == "make") {
        make(bench, argv[4]);
        return 0;
    }
    bench.large = copyOf(bench, argv[3], "work");
    if (mode == "growth") {
        measureGrowth(bench);
    } else {
        bench.small = copyOf(bench, argv[4], "work-small");
        compare(bench, argv[5], argv[6]);
        std::filesystem::remove_all(bench.small);
    }
    std::filesystem::remove_all(bench.large);
    return 0;
}
