#include "exchange/markup_document.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <limits>
#include <malloc.h>
#include <string>

using namespace hourwright::exchange;

namespace {

// A report's table: rows of four cells with an attribute.
std::u16string table(std::int64_t elements) {
    MarkupDocument page;
    page.addElement(u"table");
    page.intoElement();
    for (std::int64_t i = 0; i < elements; i += 5) {
        page.addElement(u"tr");
        page.intoElement();
        for (int cell = 0; cell < 4; ++cell)
            page.addElement(u"td", u"Smith & Co");
        page.addAttribute(u"align", u"right");
        page.outOfElement();
    }
    return page.text();
}

void perElement(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["element"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The time an element must not grow with their number. Pages that the kernel clears count here: a large document takes
// fresh ones every time, a small one does not.
void buildMarkupDocument(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(table(state.range(0)));
    perElement(state);
}
BENCHMARK(buildMarkupDocument)->Arg(1000)->Arg(10'000)->Arg(50'000)->Arg(200'000);

// The same in memory that the allocator keeps between two documents: the time of the building itself.
void buildMarkupDocumentInKeptMemory(benchmark::State& state) {
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    benchmark::DoNotOptimize(table(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(table(state.range(0)));
    perElement(state);
}
BENCHMARK(buildMarkupDocumentInKeptMemory)->Arg(1000)->Arg(200'000);

void parseMarkupDocument(benchmark::State& state) {
    const std::u16string text = table(state.range(0));
    MarkupDocument page;
    for (auto _ : state)
        benchmark::DoNotOptimize(page.setText(text));
    perElement(state);
}
BENCHMARK(parseMarkupDocument)->Arg(1000)->Arg(200'000);

} // namespace
