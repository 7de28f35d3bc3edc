#include "platform/utf.h"

#include <cstdint>

namespace hourwright::platform {

namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

void appendCodePoint(std::string& out, char32_t c) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

void encode(std::string& out, std::u16string_view text, bool keepLoneSurrogates) {
    out.reserve(out.size() + text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
            continue;
        }
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(text[i + 1]) - 0xDC00);
            ++i;
        } else if (!keepLoneSurrogates && (isHighSurrogate(c) || isLowSurrogate(c))) {
            c = replacement;
        }
        appendCodePoint(out, c);
    }
}

struct Decoded {
    char32_t codePoint;
    std::size_t length;
};

// Decodes one sequence that does not start with an ASCII byte.
Decoded decodeOne(std::string_view bytes) {
    const auto at = [&bytes](std::size_t i) -> char32_t { return static_cast<unsigned char>(bytes[i]); };
    const char32_t lead = at(0);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length)
        return {replacement, 1};
    char32_t c = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xC0) != 0x80)
            return {replacement, 1};
        c = c << 6 | (at(i) & 0x3F);
    }
    const bool tooShort = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
    if (tooShort || c > 0x10FFFF)
        return {replacement, 1};
    return {c, length};
}

} // namespace

void appendUtf8(std::string& out, std::u16string_view text) {
    encode(out, text, true);
}

std::string toUtf8(std::u16string_view text) {
    std::string out;
    encode(out, text, true);
    return out;
}

std::string printableUtf8(std::u16string_view text) {
    std::string out;
    encode(out, text, false);
    return out;
}

char16_t* decodeUtf8(std::string_view utf8, char16_t* out) {
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte < 0x80) {
            *out++ = byte;
            ++i;
            continue;
        }
        const Decoded decoded = decodeOne(utf8.substr(i));
        i += decoded.length;
        if (decoded.codePoint < 0x10000) {
            *out++ = static_cast<char16_t>(decoded.codePoint);
        } else {
            *out++ = static_cast<char16_t>(0xD7C0 + (decoded.codePoint >> 10));
            *out++ = static_cast<char16_t>(0xDC00 + (decoded.codePoint & 0x3FF));
        }
    }
    return out;
}

std::u16string toUtf16(std::string_view utf8) {
    std::u16string text(utf8.size(), u'\0');
    text.resize(static_cast<std::size_t>(decodeUtf8(utf8, text.data()) - text.data()));
    return text;
}

} // namespace hourwright::platform
