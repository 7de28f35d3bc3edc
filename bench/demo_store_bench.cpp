#include "app/demo/demo_store.h"
#include "exchange/note_document.h"
#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "store/date_walk.h"
#include "support/memory_registry.h"
#include "support/temporary_directory.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <memory>
#include <string>

using namespace hourwright;
namespace demo = hourwright::app::demo;

namespace {

/// A store in a directory of its own.
struct Home {
    test::TemporaryDirectory directory;
    test::MemoryRegistry registry;
    std::unique_ptr<platform::NamedMutex> mutex =
        platform::makeNamedMutex(directory.path(), std::string(store::clientIdMutexName));
    std::unique_ptr<platform::ObjectStore> objects =
        platform::openSqliteObjectStore(directory.path() / "bench.db").store;
    store::Stores stores{*objects, *mutex, registry};

    bool fill(std::uint64_t entries) {
        const auto encode = [](std::u16string_view text) { return exchange::writeNote(exchange::fromPlainText(text)); };
        const demo::DemoOptions options{
            .entries = entries, .seed = 1, .lastDay = {.year = 2026, .month = 6, .day = 19}};
        return stores.open() && demo::fillWithDemoHistory(stores, options, encode) == demo::DemoResult::done;
    }
};

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
