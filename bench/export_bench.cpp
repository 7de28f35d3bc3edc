#include "demo_home.h"
#include "exchange/csv_export.h"
#include "exchange/xml_export.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/posix_files.h"

#include <benchmark/benchmark.h>
#include <memory>

using namespace hourwright;

namespace {

constexpr std::uint64_t entryCount = 50'000;

/// Exports all entries of a store, again and again.
template<typename Export>
void exportAll(benchmark::State& state, const char* locale, Export run) {
    bench::Home home;
    if (!home.fill(entryCount))
        state.SkipWithError("the store was not filled");
    const auto system = platform::makeIcuLocale(locale);
    platform::PosixFiles files;
    const exchange::ExportTarget target{files, home.directory.path() / "out", *system};
    for (auto _ : state)
        if (!run(home.stores.entries(), target).ok())
            state.SkipWithError("the export failed");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(entryCount));
}

constexpr auto everyEntry = [](const store::TimeEntry&) { return true; };

void csv(benchmark::State& state, const char* locale) {
    exportAll(state, locale, [](store::RecordStore& entries, const exchange::ExportTarget& target) {
        return exchange::exportTimeEntries(entries, {}, everyEntry, {}, target);
    });
}
BENCHMARK_CAPTURE(csv, en_US, "en_US")->Unit(benchmark::kMillisecond);

// To take at most 1.3 times as long as the same entries do as CSV.
void xml(benchmark::State& state, const char* locale, app::XmlEncoding encoding) {
    exportAll(state, locale, [encoding](store::RecordStore& entries, const exchange::ExportTarget& target) {
        return exchange::exportXml(entries, {}, everyEntry, {.encoding = encoding, .rules = {}}, target);
    });
}
BENCHMARK_CAPTURE(xml, en_US, "en_US", app::XmlEncoding::unnamed)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(xml, utf16, "en_US", app::XmlEncoding::utf16)->Unit(benchmark::kMillisecond);

} // namespace
