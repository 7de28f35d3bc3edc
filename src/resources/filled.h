#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace hourwright::resources {

/// A text whose places "%s" are filled with the values, one after the other. Values without a place are left out, and
/// places in values are none.
[[nodiscard]] inline std::u16string filled(std::u16string_view text,
                                           std::initializer_list<std::u16string_view> values) {
    constexpr std::u16string_view mark = u"%s";
    std::u16string result(text);
    std::size_t from = 0;
    for (const std::u16string_view value : values)
        if (const auto place = result.find(mark, from); place != std::u16string::npos) {
            result.replace(place, mark.size(), value);
            from = place + value.size();
        }
    return result;
}

} // namespace hourwright::resources
