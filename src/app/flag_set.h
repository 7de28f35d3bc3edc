#pragma once

#include <cstdint>
#include <initializer_list>

namespace hourwright::app {

/// A set of `size` yes/no options, kept as a number whose bit n is flag n. Bits beyond the last flag are dropped; bits
/// within, also those that `Flag` has no name for, stay as they came.
template<typename Flag, unsigned size>
class FlagSet {
public:
    static_assert(size < 32);
    static constexpr std::uint32_t allBits = (std::uint32_t{1} << size) - 1;

    constexpr FlagSet() = default;
    constexpr explicit FlagSet(std::uint32_t bits) : bits_(bits & allBits) {}
    constexpr FlagSet(std::initializer_list<Flag> flags) {
        for (const Flag flag : flags)
            set(flag);
    }

    [[nodiscard]] constexpr bool has(Flag flag) const { return (bits_ & mask(flag)) != 0; }
    constexpr void set(Flag flag, bool on = true) { bits_ = on ? bits_ | mask(flag) : bits_ & ~mask(flag); }
    [[nodiscard]] constexpr std::uint32_t bits() const { return bits_; }

    friend constexpr bool operator==(const FlagSet&, const FlagSet&) = default;

private:
    static constexpr std::uint32_t mask(Flag flag) { return std::uint32_t{1} << static_cast<unsigned>(flag); }

    std::uint32_t bits_ = 0;
};

} // namespace hourwright::app
