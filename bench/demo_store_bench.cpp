#include "demo_home.h"

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
            static_cast<double>(std::filesystem::file_size(home.directory.path() / "hourwright.db")) / 1048576;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(fillStore)->Arg(1000)->Arg(20'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
