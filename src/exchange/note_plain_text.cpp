#include "exchange/note_plain_text.h"

#include "platform/utf.h"

#include <algorithm>

namespace hourwright::exchange {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";

bool isTextUnit(char16_t unit) {
    return (unit >= 0x20 && unit != 0x7F) || unit == u'\t' || unit == u'\r' || unit == u'\n' || unit == u'\f';
}

std::u16string cutAtNul(std::u16string text) {
    text.resize(std::min(text.find(u'\0'), text.size()));
    return text;
}

std::u16string unitsOf(std::string_view bytes) {
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(high << 8 | low);
    }
    return text;
}

// Western text is told from other bytes by its units: none is beyond Latin Extended-A and at least one is there.
bool isWestern(std::u16string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char16_t c) { return isTextUnit(c) && c < 0x180; });
}

} // namespace

std::optional<std::u16string> plainTextOf(std::string_view bytes) {
    const auto ifText = [](std::u16string text) {
        return std::ranges::all_of(text, isTextUnit) ? std::optional(std::move(text)) : std::nullopt;
    };
    if (bytes.starts_with(utf16Mark))
        return ifText(cutAtNul(unitsOf(bytes.substr(utf16Mark.size()))));
    if (bytes.size() % 2 == 0 && bytes.find('\0') != std::string_view::npos) {
        std::u16string text = cutAtNul(unitsOf(bytes));
        if (isWestern(text))
            return text;
    }
    if (bytes.starts_with(utf8Mark))
        bytes.remove_prefix(utf8Mark.size());
    std::u16string text = platform::toUtf16(bytes.substr(0, bytes.find('\0')));
    // Malformed bytes became U+FFFD; a text that really holds one is rare enough to be refused with them.
    return text.find(u'\uFFFD') == std::u16string::npos ? ifText(std::move(text)) : std::nullopt;
}

} // namespace hourwright::exchange
