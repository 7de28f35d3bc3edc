#pragma once

#include "fuzz/targets.h"
#include "platform/utf.h"

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace hourwright::fuzz {

/// Takes values off the front of the made-up bytes; behind their end everything is zero and empty.
class Input {
public:
    explicit Input(Bytes bytes) : bytes_(bytes) {}

    [[nodiscard]] bool atEnd() const { return bytes_.empty(); }

    /// A number, lowest byte first.
    template<std::unsigned_integral Number = std::uint8_t>
    [[nodiscard]] Number number() {
        std::uint64_t value = 0;
        std::size_t shift = 0;
        for (const std::byte byte : take(sizeof(Number))) {
            value |= std::to_integer<std::uint64_t>(byte) << shift;
            shift += 8;
        }
        return static_cast<Number>(value);
    }
    /// A number below `count`, which is at most 256.
    [[nodiscard]] std::size_t below(std::size_t count) { return number() % count; }
    [[nodiscard]] bool flag() { return (number() & 1) != 0; }

    /// Bytes behind their number, at most 255.
    [[nodiscard]] Bytes bytes() { return take(number()); }
    /// The same as a text in UTF-8.
    [[nodiscard]] std::u16string text() { return platform::toUtf16(asChars(bytes())); }
    /// All that is left.
    [[nodiscard]] Bytes rest() { return take(bytes_.size()); }
    [[nodiscard]] std::string_view restChars() { return asChars(rest()); }

private:
    static std::string_view asChars(Bytes bytes) { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }

    Bytes take(std::size_t count) {
        const Bytes taken = bytes_.first(std::min(count, bytes_.size()));
        bytes_ = bytes_.subspan(taken.size());
        return taken;
    }

    Bytes bytes_;
};

} // namespace hourwright::fuzz
