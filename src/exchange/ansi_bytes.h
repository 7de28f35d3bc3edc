#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// The character of one byte in a single-byte code page. Known are the Windows pages 874 and 1250 to 1258 and, for
/// Symbol fonts, 42; bytes from 0x80 on of any other page become U+FFFD.
[[nodiscard]] char16_t decodeAnsiByte(std::uint16_t codePage, unsigned char byte);

/// True for the code pages whose characters take more than one byte.
[[nodiscard]] bool isMultiByteCodePage(std::uint16_t codePage);

/// The number of bytes of the character that begins with this byte, in a multi-byte code page.
[[nodiscard]] std::size_t sizeOfCharacter(std::uint16_t codePage, unsigned char lead);

/// Appends the characters of a multi-byte code page. Only UTF-8 (65001) is known; in the others each character from
/// 0x80 on becomes one U+FFFD.
void appendMultiByte(std::u16string& out, std::uint16_t codePage, std::string_view bytes);

/// The code page of a font's character set number; `documentPage` for the sets without one.
[[nodiscard]] std::uint16_t codePageOfCharset(std::int32_t charset, std::uint16_t documentPage);

} // namespace hourwright::exchange
