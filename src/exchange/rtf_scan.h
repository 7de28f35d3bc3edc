#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

/// A control word as it stands in the bytes: its letters, its number if any, and the bytes it takes with its backslash
/// and the blank that ends it. A number beyond 32 bits becomes the nearest one.
struct RtfWord {
    std::string_view name;
    std::optional<std::int32_t> number;
    std::size_t size = 0;
};

[[nodiscard]] constexpr bool isAsciiLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The value of a hexadecimal digit, or -1.
[[nodiscard]] int hexValue(char c);

/// The control word that begins at a position (a backslash with a letter behind it).
[[nodiscard]] RtfWord scanRtfWord(std::string_view bytes, std::size_t at);

/// The group whose opening brace stands at a position, with both braces; nothing when it is never closed.
[[nodiscard]] std::optional<std::string_view> scanRtfGroup(std::string_view bytes, std::size_t at);

/// A group of nothing but control words and hexadecimal data.
struct RtfHexGroup {
    std::vector<RtfWord> words;
    std::vector<std::byte> data;
};

/// Takes such a group apart, an asterisk in front of its words left out; nothing when anything else stands in it.
[[nodiscard]] std::optional<RtfHexGroup> parseRtfHexGroup(std::string_view group);

} // namespace hourwright::exchange
