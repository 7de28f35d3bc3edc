#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::billing {

/// The longest text that a field of the editors takes, in UTF-16 units.
inline constexpr std::size_t maxTextLength = 128;

/// The first size of a note, in characters, that is refused.
inline constexpr std::size_t noteTooLargeFrom = 65'001;

/// The size of a note that is a plain text: its UTF-16 units, a line break of two units counting once, up to its first
/// NUL.
[[nodiscard]] std::size_t noteCharacters(std::u16string_view text);

/// Takes a typed text over into its field; a text that was not touched keeps what is there. False, and nothing changed,
/// for a text that is too long.
[[nodiscard]] inline bool takeText(const std::optional<std::u16string>& typed, std::u16string& field) {
    if (typed && typed->size() > maxTextLength)
        return false;
    if (typed)
        field = *typed;
    return true;
}

} // namespace hourwright::billing
