#pragma once

#include <cstdint>
#include <string_view>

namespace hourwright::exchange {

/// What a control word means to a note. From `fontTable` on they open destinations: groups that are no running text.
enum class RtfKeyword : std::uint8_t {
    unknown,
    character, ///< stands for one character
    paragraph,
    section,
    row,
    bold,
    italic,
    underline,
    noUnderline,
    hidden,
    plain,
    paragraphDefaults,
    font,
    defaultFont,
    fontCharset,
    fontCodePage,
    codePage,
    namedCodePage, ///< a word of its own for a code page
    fieldResult, ///< what a field shows; text even where it may be ignored
    unicode,
    unicodeSkip,
    binary,
    fontTable,
    listText, ///< the bullet or number of a list item, written out
    numbering,
    ink,
    voice,
    picture,
    dropped, ///< describes what a note does not have: styles, lists, authors
    kept,    ///< content of other programs without running text
};

/// A control word's meaning; `value` is its character or code page.
struct RtfKeywordInfo {
    RtfKeyword keyword = RtfKeyword::unknown;
    std::uint16_t value = 0;
};

[[nodiscard]] constexpr bool opensDestination(RtfKeyword keyword) {
    return keyword >= RtfKeyword::fontTable;
}

[[nodiscard]] RtfKeywordInfo findRtfKeyword(std::string_view word);

} // namespace hourwright::exchange
