#include "app/arrange.h"
#include "platform/icu/icu_locale.h"

#include <benchmark/benchmark.h>

using namespace hourwright;

namespace {

// 100,000 rows with so many different clients, the tasks of one day all the same but for their ends.
void arrangeByClient(benchmark::State& state) {
    const auto locale = platform::makeIcuLocale("de_DE");
    std::vector<store::TimeEntry> entries(100'000);
    std::size_t number = 0;
    for (store::TimeEntry& entry : entries) {
        number = (number + 61'803) % entries.size();
        const auto client = std::to_string(number % static_cast<std::size_t>(state.range(0)));
        entry.client = u"Caf\u00E9 Lumi\u00E8re " + std::u16string(client.begin(), client.end());
        entry.task = u"Site visit " + std::u16string(client.rbegin(), client.rend());
        entry.date.ticks = number / 10;
    }
    for (auto _ : state) {
        auto arranged = entries;
        app::arrange(arranged, 1, *locale);
        benchmark::DoNotOptimize(arranged.data());
    }
}
BENCHMARK(arrangeByClient)->Arg(1)->Arg(20)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
