#include "raw_rows.h"
#include "size.h"
#include "store/date_walk.h"
#include "store_file.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <ctime>

using namespace hourwright;
using store::TimeEntry;

namespace {

constexpr std::size_t differentEntries = 20'000;

// Some entries of the store that is read; the first ones are written again until there are enough.
const std::vector<TimeEntry>& someEntries() {
    static const std::vector<TimeEntry> some = [] {
        bench::OpenEntries entries;
        std::vector<TimeEntry> read;
        store::DateWalk walk(*entries, {});
        TimeEntry entry;
        while (read.size() < differentEntries && walk.next(entry) == store::ReadResult::ok)
            read.push_back(entry);
        return read;
    }();
    return some;
}

void finish(benchmark::State& state, const bench::Home& home) {
    state.counters["entries"] = static_cast<double>(state.range(0));
    state.counters["MB"] = bench::peakMegabytes();
    state.counters["file MB"] =
        static_cast<double>(std::filesystem::file_size(home.directory.path() / "hourwright.db")) / 1e6;
}

bool writeByProgram(bench::Home& home, std::size_t count) {
    const auto& entries = someEntries();
    const auto transaction = home.objects->begin();
    bool done = transaction != nullptr;
    for (std::size_t i = 0; i < count && done; ++i) {
        TimeEntry entry = entries[i % entries.size()];
        done = insertTimeEntry(*transaction, home.stores.entries(), entry);
    }
    return done && transaction->commit();
}

// One transaction, from the first record to the end of the commit, in an empty store.
void bulkWrite(benchmark::State& state, bool raw) {
    const auto count = static_cast<std::size_t>(state.range(0));
    static_cast<void>(someEntries());
    for (auto _ : state) {
        bench::Home home;
        // One of each, so that every column is there.
        bool done = home.stores.open() && (!raw || writeByProgram(home, someEntries().size()));
        bench::RawStore rawStore(home.directory.path() / "hourwright.db");
        const std::clock_t cpuStart = std::clock();
        const auto start = std::chrono::steady_clock::now();
        done = done && (raw ? rawStore.insert(someEntries(), count) : writeByProgram(home, count));
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        state.counters["cpu"] = static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC;
        if (!done)
            state.SkipWithError("the entries were not written");
        finish(state, home);
    }
}
BENCHMARK_CAPTURE(bulkWrite, ours, false)->Arg(bench::size())->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bulkWrite, raw, true)->Arg(bench::size())->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
