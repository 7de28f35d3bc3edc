#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace hourwright::bench {

/// How much of everything benchmarks make that are not bound to a store: HOURWRIGHT_BENCH_SIZE, else 20,000.
inline std::int64_t size() {
    const char* const given = std::getenv("HOURWRIGHT_BENCH_SIZE");
    return given != nullptr ? std::stoll(given) : 20'000;
}

} // namespace hourwright::bench
