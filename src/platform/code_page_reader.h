#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace hourwright::platform {

/// Reads the characters of a code page. One object belongs to one thread.
class CodePageReader {
public:
    virtual ~CodePageReader() = default;

    /// The character that one byte is, or a lead and a trail byte together; U+FFFD when they are none.
    [[nodiscard]] virtual char16_t character(std::string_view bytes) = 0;
};

/// The reader of an East Asian code page (932, 936, 949, 950) or of one of the old ones 437, 850 and 10000; null for
/// any other.
[[nodiscard]] std::unique_ptr<CodePageReader> makeCodePageReader(std::uint32_t number);

} // namespace hourwright::platform
