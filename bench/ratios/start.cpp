#include "ratios/start.h"

#include "ratios/child.h"

#include <cstdlib>

namespace hourwright::bench {

void measureStart(const Bench& bench, const std::filesystem::path& window, const std::filesystem::path& emptyWindow) {
    const Words start = {window, "--home", bench.large};
    // A store that only hwctl has used is looked through once for records of earlier versions.
    ::setenv("HOURWRIGHT_BENCH_CLOSE", "1", 1);
    const bool closed = !runChild(start).failed;
    ::unsetenv("HOURWRIGHT_BENCH_CLOSE");
    auto results = inTurns({[&start] { return runChild(start); }, [&] { return runChild({emptyWindow}); }});
    results[0].failed |= !closed;
    writeRow("start", results[0], &results[1]);
}

} // namespace hourwright::bench
