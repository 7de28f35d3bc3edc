#include "demo_home.h"
#include "store/date_walk.h"

#include <benchmark/benchmark.h>
#include <filesystem>

using namespace hourwright;
using bench::Home;

namespace {

void fillStore(benchmark::State& state) {
    const auto entries = static_cast<std::uint64_t>(state.range(0));
    for (auto _ : state) {
        Home home;
        if (!home.fill(entries))
            state.SkipWithError("the store was not filled");
        state.counters["MiB"] =
            static_cast<double>(std::filesystem::file_size(home.directory.path() / "bench.db")) / 1048576;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(fillStore)->Arg(1000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void walkStore(benchmark::State& state) {
    Home home;
    if (!home.fill(static_cast<std::uint64_t>(state.range(0))))
        state.SkipWithError("the store was not filled");
    store::TimeEntry entry;
    for (auto _ : state) {
        store::DateWalk walk(home.stores.entries(), {});
        while (walk.next(entry) == store::ReadResult::ok)
            benchmark::DoNotOptimize(entry);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(walkStore)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
