#include "app/entry_filter.h"
#include "platform/icu/icu_locale.h"
#include "store/date_walk.h"
#include "store_file.h"

#include <array>
#include <benchmark/benchmark.h>

using namespace hourwright;

namespace {

template<typename Accepts>
void walkAll(benchmark::State& state, Accepts accepts) {
    bench::OpenEntries entries;
    std::uint64_t walked = 0;
    std::uint64_t accepted = 0;
    for (auto _ : state) {
        walked = accepted = 0;
        store::DateWalk walk(*entries, {});
        store::TimeEntry entry;
        for (; walk.next(entry) == store::ReadResult::ok; ++walked)
            accepted += accepts(entry) ? 1U : 0U;
    }
    state.counters["accepted"] = static_cast<double>(accepted);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(walked));
}

struct Text {
    std::u16string app::EntryFilter::*wanted;
    std::u16string store::TimeEntry::*text;
};
constexpr std::array<Text, 9> texts{{
    {&app::EntryFilter::task, &store::TimeEntry::task},
    {&app::EntryFilter::client, &store::TimeEntry::client},
    {&app::EntryFilter::project, &store::TimeEntry::project},
    {&app::EntryFilter::phase, &store::TimeEntry::phase},
    {&app::EntryFilter::billTo, &store::TimeEntry::billTo},
    {&app::EntryFilter::currency, &store::TimeEntry::currency},
    {&app::EntryFilter::custom1, &store::TimeEntry::custom1},
    {&app::EntryFilter::custom2, &store::TimeEntry::custom2},
    {&app::EntryFilter::custom3, &store::TimeEntry::custom3},
}};

// A filter with the first texts of one entry. Many share its client, so that more than one text is compared.
void walkFilteredByTexts(benchmark::State& state) {
    const auto locale = platform::makeIcuLocale("de_DE");
    const store::TimeEntry wanted = bench::middleEntry();
    app::EntryFilter filter;
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.range(0)); ++i)
        filter.*texts[i].wanted = wanted.*texts[i].text;
    const app::EntryMatcher matcher(filter, *locale);
    walkAll(state, [&](const store::TimeEntry& entry) { return matcher.matches(entry); });
}
BENCHMARK(walkFilteredByTexts)->Arg(1)->Arg(2)->Arg(3)->Arg(9)->Unit(benchmark::kMillisecond);

// The dearest case: every text is compared by the collation, since each is the wanted one in another spelling.
void matchNineTextsSpeltOtherwise(benchmark::State& state) {
    const auto locale = platform::makeIcuLocale("de_DE");
    app::EntryFilter filter;
    store::TimeEntry entry;
    for (const Text& text : texts) {
        filter.*text.wanted = u"Caf\u00E9 Lumi\u00E8re";
        entry.*text.text = u"Cafe\u0301 Lumie\u0300re";
    }
    const app::EntryMatcher matcher(filter, *locale);
    for (auto _ : state)
        benchmark::DoNotOptimize(matcher.matches(entry));
}
BENCHMARK(matchNineTextsSpeltOtherwise);

} // namespace
