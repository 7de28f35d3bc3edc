#pragma once

#include <string>
#include <string_view>

namespace hourwright::platform {

/// UTF-8 of a UTF-16 text. A lone surrogate becomes the three bytes of its code point, so that nothing is lost on the
/// way through a file; use `printableUtf8` for what people or other programs read.
[[nodiscard]] std::string toUtf8(std::u16string_view text);

/// UTF-8 of a UTF-16 text with U+FFFD in place of lone surrogates: always valid UTF-8.
[[nodiscard]] std::string printableUtf8(std::u16string_view text);

/// UTF-16 of UTF-8 bytes. Encoded surrogates come back as they went in; every other malformed byte becomes U+FFFD.
[[nodiscard]] std::u16string toUtf16(std::string_view utf8);

/// Appends the UTF-16 form of UTF-8 bytes to `out`, which must have room for utf8.size() units; returns its end.
char16_t* decodeUtf8(std::string_view utf8, char16_t* out);

/// Appends the UTF-8 form (lone surrogates kept) to a string.
void appendUtf8(std::string& out, std::u16string_view text);

} // namespace hourwright::platform
