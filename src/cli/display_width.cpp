#include "cli/display_width.h"

#include "platform/utf.h"

#include <algorithm>
#include <array>

namespace hourwright::cli {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// The blocks that matter for aligned columns; single exceptions within them do not.
constexpr std::array wideRanges{
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0xA4CF},   Range{0xA960, 0xA97F},
    Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},   Range{0xFE30, 0xFE6F},   Range{0xFF01, 0xFF60},
    Range{0xFFE0, 0xFFE6},   Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF}, Range{0x1F900, 0x1FAFF},
    Range{0x20000, 0x3FFFD},
};

constexpr std::array zeroRanges{
    Range{0x0300, 0x036F}, Range{0x0483, 0x0489}, Range{0x0591, 0x05BD}, Range{0x064B, 0x065F}, Range{0x0E31, 0x0E31},
    Range{0x0E34, 0x0E3A}, Range{0x0E47, 0x0E4E}, Range{0x1AB0, 0x1AFF}, Range{0x1DC0, 0x1DFF}, Range{0x200B, 0x200F},
    Range{0x20D0, 0x20FF}, Range{0x3099, 0x309A}, Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F},
};

template<std::size_t count>
bool within(char32_t c, const std::array<Range, count>& ranges) {
    const auto range = std::ranges::lower_bound(ranges, c, {}, &Range::last);
    return range != ranges.end() && range->first <= c;
}

std::size_t widthOf(char32_t c) {
    if (c < 0x300)
        return 1;
    return within(c, zeroRanges) ? 0 : within(c, wideRanges) ? 2 : 1;
}

} // namespace

std::size_t displayWidth(std::string_view utf8) {
    const std::u16string units = platform::toUtf16(utf8);
    std::size_t width = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t c = units[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < units.size()) {
            ++i;
            c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(units[i]) - 0xDC00);
        }
        width += widthOf(c);
    }
    return width;
}

std::string cellText(std::u16string_view text) {
    std::u16string line(text);
    std::ranges::replace_if(
        line, [](char16_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }, u' ');
    return platform::printableUtf8(line);
}

} // namespace hourwright::cli
