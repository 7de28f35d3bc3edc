#pragma once

#include <cstdint>

namespace hourwright::app {

/// How a list shows its entries. The numbers are the stored ones.
enum class ListStyle : std::uint8_t { standard = 0, simple = 1, tree = 2 };

/// The style of a stored number; a number that is none reads as the standard list.
[[nodiscard]] constexpr ListStyle listStyle(std::uint32_t stored) {
    return stored <= 2 ? static_cast<ListStyle>(stored) : ListStyle::standard;
}

} // namespace hourwright::app
