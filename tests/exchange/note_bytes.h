#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

inline std::vector<std::byte> bytesOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

inline std::string_view charsOf(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace hourwright::exchange
