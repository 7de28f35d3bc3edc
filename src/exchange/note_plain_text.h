#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// The text of bytes that are plain text: UTF-8 or UTF-16LE with a byte order mark, UTF-16LE without one when it is
/// Western text, or valid UTF-8; without control characters but tab, form feed and line breaks, up to the first NUL.
/// Nothing for other bytes.
[[nodiscard]] std::optional<std::u16string> plainTextOf(std::string_view bytes);

} // namespace hourwright::exchange
