#include "platform/number_text.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <string>

using namespace hourwright::platform;

namespace {

void appendHundredthsText(benchmark::State& state) {
    std::string out;
    std::int64_t value = 0;
    for (auto _ : state) {
        out.clear();
        appendHundredths(out, value = (value + 7919) % 1'000'000);
        benchmark::DoNotOptimize(out.data());
    }
}
BENCHMARK(appendHundredthsText);

void appendAmountText(benchmark::State& state) {
    std::string out;
    double value = 0;
    for (auto _ : state) {
        out.clear();
        value = value < 1e6 ? value + 79.19 : 0.17;
        appendFixedDecimals(out, value, 2);
        benchmark::DoNotOptimize(out.data());
    }
}
BENCHMARK(appendAmountText);

void parseTypedNumber(benchmark::State& state) {
    const std::u16string text = u"  1234.56";
    for (auto _ : state)
        benchmark::DoNotOptimize(parseDecimal(text));
}
BENCHMARK(parseTypedNumber);

} // namespace
