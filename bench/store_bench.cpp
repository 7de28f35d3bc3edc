#include "app/entry_filter.h"
#include "platform/icu/icu_locale.h"
#include "platform/utf.h"
#include "raw_rows.h"
#include "store/date_walk.h"
#include "store_file.h"

#include <benchmark/benchmark.h>

using namespace hourwright;
using store::TimeEntry;

// Each work is done twice: by the program's own parts, and by SQLite alone, which decodes the same rows into the same
// values. `check` is a sum of what was read; it must be equal on both sides.
namespace {

struct Sum {
    std::uint64_t entries = 0;
    std::uint64_t units = 0;

    void add(const TimeEntry& entry) {
        ++entries;
        units += entry.client.size() + entry.project.size() + entry.phase.size() + entry.task.size() +
                 entry.currency.size() + entry.billTo.size() + entry.custom1.size() + entry.custom2.size() +
                 entry.custom3.size() + entry.note.size();
        units += static_cast<std::uint64_t>(entry.duration + entry.rate + entry.breakTime + entry.flags +
                                            static_cast<int>(entry.status));
    }
};

void report(benchmark::State& state, const Sum& sum) {
    state.counters["entries"] = static_cast<double>(sum.entries);
    state.counters["check"] = static_cast<double>(sum.units);
    state.counters["MB"] = bench::peakMegabytes();
}

template<typename Accepts>
Sum walkOurs(store::RecordStore& entries, const store::DateRange& range, Accepts accepts) {
    Sum sum;
    store::DateWalk walk(entries, range);
    TimeEntry entry;
    while (walk.next(entry) == store::ReadResult::ok)
        if (accepts(entry))
            sum.add(entry);
    return sum;
}

constexpr auto everyEntry = [](const TimeEntry&) { return true; };

void walkByProgram(benchmark::State& state) {
    bench::OpenEntries entries;
    Sum sum;
    for (auto _ : state)
        sum = walkOurs(*entries, {}, everyEntry);
    report(state, sum);
}
BENCHMARK(walkByProgram)->Name("walk/ours")->Unit(benchmark::kMillisecond);

void walkBySqlite(benchmark::State& state) {
    bench::RawStore raw(bench::storeFile());
    Sum sum;
    for (auto _ : state) {
        sum = {};
        raw.each("1", {}, [&sum](const TimeEntry& entry) { sum.add(entry); });
    }
    report(state, sum);
}
BENCHMARK(walkBySqlite)->Name("walk/raw")->Unit(benchmark::kMillisecond);

constexpr std::uint64_t ticksPerWeek = 7 * 24 * 3600 * platform::ticksPerSecond;

void weekByProgram(benchmark::State& state) {
    bench::OpenEntries entries;
    const platform::FileTime from = bench::middleEntry().date;
    const store::DateRange range{.after = from, .last = platform::FileTime{from.ticks + ticksPerWeek}};
    Sum sum;
    for (auto _ : state)
        sum = walkOurs(*entries, range, everyEntry);
    report(state, sum);
}
BENCHMARK(weekByProgram)->Name("week/ours")->Unit(benchmark::kMicrosecond);

void weekBySqlite(benchmark::State& state) {
    bench::RawStore raw(bench::storeFile());
    const auto from = static_cast<std::int64_t>(bench::middleEntry().date.ticks);
    const std::array numbers = {from, from + static_cast<std::int64_t>(ticksPerWeek)};
    Sum sum;
    for (auto _ : state) {
        sum = {};
        raw.each("p1001_filetime > ?1 AND p1001_filetime <= ?2", numbers,
                 [&sum](const TimeEntry& entry) { sum.add(entry); });
    }
    report(state, sum);
}
BENCHMARK(weekBySqlite)->Name("week/raw")->Unit(benchmark::kMicrosecond);

void filterByProgram(benchmark::State& state) {
    const auto locale = platform::makeIcuLocale("en_US");
    app::EntryFilter filter;
    filter.client = bench::middleEntry().client;
    const app::EntryMatcher matcher(filter, *locale);
    bench::OpenEntries entries;
    Sum sum;
    for (auto _ : state)
        sum = walkOurs(*entries, {}, [&matcher](const TimeEntry& entry) { return matcher.matches(entry); });
    report(state, sum);
}
BENCHMARK(filterByProgram)->Name("filter/ours")->Unit(benchmark::kMillisecond);

void filterBySqlite(benchmark::State& state) {
    bench::RawStore raw(bench::storeFile());
    std::string condition = "p1002_text = '";
    for (const char c : platform::toUtf8(bench::middleEntry().client))
        condition.append(c == '\'' ? 2 : 1, c);
    Sum sum;
    for (auto _ : state) {
        sum = {};
        raw.each(condition + "' COLLATE NOCASE", {}, [&sum](const TimeEntry& entry) { sum.add(entry); });
    }
    report(state, sum);
}
BENCHMARK(filterBySqlite)->Name("filter/raw")->Unit(benchmark::kMillisecond);

} // namespace
