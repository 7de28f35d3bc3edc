#include "exchange/rtf_scan.h"

#include <algorithm>
#include <limits>

namespace hourwright::exchange {

namespace {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::int32_t clampToInt32(std::int64_t value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

// Behind a backslash: the bytes that belong to it and cannot be a brace of the structure.
std::size_t sizeOfControl(std::string_view bytes, std::size_t at) {
    if (at + 1 >= bytes.size())
        return 1;
    if (!isAsciiLetter(bytes[at + 1]))
        return 2;
    const RtfWord word = scanRtfWord(bytes, at);
    const bool skipsData = word.name == "bin" && word.number.value_or(0) > 0;
    return word.size + (skipsData ? static_cast<std::size_t>(*word.number) : 0);
}

} // namespace

int hexValue(char c) {
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

RtfWord scanRtfWord(std::string_view bytes, std::size_t at) {
    const std::size_t begin = at + 1;
    std::size_t i = begin;
    while (i < bytes.size() && isAsciiLetter(bytes[i]))
        ++i;
    RtfWord word{.name = bytes.substr(begin, i - begin), .number = {}};
    const bool negative = i + 1 < bytes.size() && bytes[i] == '-' && isDigit(bytes[i + 1]);
    if (negative)
        ++i;
    if (i < bytes.size() && isDigit(bytes[i])) {
        std::int64_t value = 0;
        for (; i < bytes.size() && isDigit(bytes[i]); ++i)
            value = std::min<std::int64_t>(value * 10 + (bytes[i] - '0'), std::int64_t{1} << 40);
        word.number = clampToInt32(negative ? -value : value);
    }
    if (i < bytes.size() && bytes[i] == ' ')
        ++i;
    word.size = i - at;
    return word;
}

std::optional<std::string_view> scanRtfGroup(std::string_view bytes, std::size_t at) {
    std::size_t depth = 0;
    std::size_t i = at;
    while (i < bytes.size()) {
        const char c = bytes[i];
        if (c == '\\') {
            i += sizeOfControl(bytes, i);
            continue;
        }
        ++i;
        if (c == '{')
            ++depth;
        else if (c == '}' && --depth == 0)
            return bytes.substr(at, i - at);
    }
    return std::nullopt;
}

std::optional<RtfHexGroup> parseRtfHexGroup(std::string_view group) {
    RtfHexGroup result;
    const std::string_view inner = group.substr(1, group.size() - 2);
    std::size_t i = inner.starts_with("\\*") ? 2 : 0;
    while (i + 1 < inner.size() && inner[i] == '\\' && isAsciiLetter(inner[i + 1])) {
        result.words.push_back(scanRtfWord(inner, i));
        i += result.words.back().size;
    }
    int high = -1;
    for (; i < inner.size(); ++i) {
        if (inner[i] == '\r' || inner[i] == '\n' || inner[i] == ' ')
            continue;
        const int digit = hexValue(inner[i]);
        if (digit < 0)
            return std::nullopt;
        if (high >= 0)
            result.data.push_back(static_cast<std::byte>(high * 16 + digit));
        high = high >= 0 ? -1 : digit;
    }
    if (high >= 0)
        return std::nullopt;
    return result;
}

} // namespace hourwright::exchange
