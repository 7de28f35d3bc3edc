#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// A character and what stands for it in an escaped text.
struct Escape {
    char16_t unit;
    std::u16string_view replacement;
};

/// The escapes of a markup document: those of a text between tags are the first three, an attribute's value takes all.
inline constexpr std::array<Escape, 5> attributeEscapes{
    {{u'<', u"&lt;"}, {u'&', u"&amp;"}, {u'>', u"&gt;"}, {u'\'', u"&apos;"}, {u'"', u"&quot;"}}};
inline constexpr std::span<const Escape> textEscapes = std::span(attributeEscapes).first<3>();

/// Appends a text with its escapes in place of their characters; everything else goes in as it is, in one pass.
void appendEscaped(std::u16string& out, std::u16string_view text, std::span<const Escape> escapes);

[[nodiscard]] std::u16string escaped(std::u16string_view text, std::span<const Escape> escapes);

} // namespace hourwright::exchange
