#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hourwright::platform {

/// An ANSI code page: one byte a character, or one or two in the East Asian ones.
class CodePage {
public:
    virtual ~CodePage() = default;

    /// Its number, for example 1252.
    [[nodiscard]] virtual std::uint32_t number() const = 0;

    /// Converts a text. Every UTF-16 unit gives at least one byte: what the code page lacks becomes its default
    /// character, once for each unit, and a lone surrogate likewise.
    [[nodiscard]] virtual std::string convert(std::u16string_view text) const = 0;

    /// The first n bytes of the conversion, n being the number of UTF-16 units: what the text file writer writes. In
    /// a double-byte code page that cuts the end of a text with double-byte characters.
    [[nodiscard]] std::string convertCut(std::u16string_view text) const;
};

} // namespace hourwright::platform
