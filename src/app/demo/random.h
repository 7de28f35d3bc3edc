#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace hourwright::app::demo {

/// A small generator of pseudo-random numbers (SplitMix64): the same numbers for the same seed on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }

    /// A number from 0 to n - 1; n is not 0.
    std::uint32_t below(std::uint32_t n) { return static_cast<std::uint32_t>(((next() >> 32) * n) >> 32); }

    /// A number from `first` to `last`, both included.
    std::uint32_t between(std::uint32_t first, std::uint32_t last) { return first + below(last - first + 1); }

    [[nodiscard]] bool chance(std::uint32_t percent) { return below(100) < percent; }

    /// One of the items, which are not empty.
    template<typename Container>
    const auto& pick(const Container& items) {
        return items[below(static_cast<std::uint32_t>(std::size(items)))];
    }

private:
    std::uint64_t state_;
};

} // namespace hourwright::app::demo
