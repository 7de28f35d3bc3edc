#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace hourwright::app {

/// A value of a filter as it is stored.
struct StoredFilterValue {
    std::u16string_view name;
    std::variant<std::u16string, std::uint32_t> value;
};

} // namespace hourwright::app
