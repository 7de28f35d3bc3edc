#include "billing/numeric_test.h"

#include "platform/locale.h"

#include <cstddef>

namespace hourwright::billing {
namespace {

bool isLead(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isTrail(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Takes the next code point off the text; a surrogate without its partner stands for itself.
char32_t takeCodePoint(std::u16string_view& text) {
    const char16_t first = text.front();
    text.remove_prefix(1);
    if (!isLead(first) || text.empty() || !isTrail(text.front()))
        return first;
    const char16_t second = text.front();
    text.remove_prefix(1);
    return 0x10000 + (static_cast<char32_t>(first - 0xD800) << 10) + static_cast<char32_t>(second - 0xDC00);
}

} // namespace

bool passesNumericTest(std::u16string_view text) {
    while (!text.empty())
        if (platform::isAlphabetic(takeCodePoint(text)))
            return false;
    return true;
}

} // namespace hourwright::billing
