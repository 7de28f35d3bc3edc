#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hourwright::cli {

/// Number of terminal columns that a UTF-8 text takes: two for East Asian wide characters and pictures, none for
/// combining marks, one for all others.
[[nodiscard]] std::size_t displayWidth(std::string_view utf8);

/// UTF-8 of a text as one line of a table: control characters, line breaks too, become blanks.
[[nodiscard]] std::string cellText(std::u16string_view text);

} // namespace hourwright::cli
