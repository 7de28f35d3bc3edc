#include "exchange/markup_document.h"
#include "peak_memory.h"
#include "size.h"

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

// The same text, put together by hand.
std::u16string plainTable(std::int64_t elements) {
    const auto addEscaped = [](std::u16string& text, std::u16string_view value) {
        for (const char16_t c : value) {
            if (c == u'&')
                text += u"&amp;";
            else if (c == u'<')
                text += u"&lt;";
            else
                text += c;
        }
    };
    std::u16string text = u"<table>\r\n";
    for (std::int64_t i = 0; i < elements; i += 5) {
        text += u"<tr>\r\n";
        for (int cell = 0; cell < 4; ++cell) {
            text += u"<td";
            if (cell == 3) {
                text += u" align=\"";
                addEscaped(text, u"right");
                text += u'"';
            }
            text += u'>';
            addEscaped(text, u"Smith & Co");
            text += u"</td>\r\n";
        }
        text += u"</tr>\r\n";
    }
    return text += u"</table>\r\n";
}

void perElement(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["MB"] = hourwright::bench::peakMegabytes();
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
BENCHMARK(buildMarkupDocument)->Name("document/ours")->Arg(1000)->Arg(hourwright::bench::size());

void putTextTogether(benchmark::State& state) {
    if (table(1000) != plainTable(1000))
        state.SkipWithError("the two texts differ");
    for (auto _ : state)
        benchmark::DoNotOptimize(plainTable(state.range(0)));
    perElement(state);
}
BENCHMARK(putTextTogether)->Name("document/raw")->Arg(1000)->Arg(hourwright::bench::size());

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
