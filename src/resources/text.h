#pragma once

#include <cstdint>
#include <string_view>

namespace hourwright::resources {

/// A label of the windows with its number. Labels stand in headers by window under `resources/texts/`, each with a
/// range of numbers of its own from 10000 on; a test sees to it that no number is given twice. "&" marks the letter
/// that reaches the control by keyboard. Messages and all texts that files or other programs know are in `strings.h`.
struct Text {
    std::uint16_t number;
    std::u16string_view text;
};

} // namespace hourwright::resources
