#pragma once

#include "platform/code_page_reader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

/// True for the code pages whose characters take more than one byte.
[[nodiscard]] bool isMultiByteCodePage(std::uint16_t codePage);

/// The number of bytes of the character that begins with this byte, in a multi-byte code page.
[[nodiscard]] std::size_t sizeOfCharacter(std::uint16_t codePage, unsigned char lead);

/// Turns the bytes of code pages into characters: the Windows pages 874 and 1250 to 1258, the East Asian ones, UTF-8
/// (65001), the old ones 437, 850 and 10000 and, for Symbol fonts, 42. One object keeps the tables that it needed.
class AnsiDecoder {
public:
    /// The character of one byte in a single-byte code page; U+FFFD for a byte from 0x80 on that has none, also in an
    /// unknown page.
    [[nodiscard]] char16_t character(std::uint16_t codePage, unsigned char byte);

    /// Appends the character that the bytes are in a multi-byte code page, U+FFFD when they are none. A byte of ASCII
    /// behind a lead byte that it does not go with stays.
    void append(std::u16string& out, std::uint16_t codePage, std::string_view bytes);

private:
    struct Reader {
        std::uint16_t codePage;
        std::unique_ptr<platform::CodePageReader> reader;
    };

    [[nodiscard]] char16_t read(std::uint16_t codePage, std::string_view bytes);

    std::vector<Reader> readers_;
};

/// The code page of a font's character set number; `documentPage` for the sets without one.
[[nodiscard]] std::uint16_t codePageOfCharset(std::int32_t charset, std::uint16_t documentPage);

} // namespace hourwright::exchange
