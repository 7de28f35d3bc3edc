#include "platform/icu/numeric_date.h"

#include <algorithm>

namespace hourwright::platform {

namespace {

constexpr char16_t quote = u'\'';

bool isLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// Longer months are names, and a year of three digits is no use to any locale.
bool isNumber(char16_t field, std::size_t count) {
    if (field == u'y')
        return count == 1 || count == 2 || count == 4;
    return (field == u'd' || field == u'M') && count <= 2;
}

void append(std::u16string& out, unsigned number, int digits) {
    const std::size_t begin = out.size();
    for (; number != 0 || digits > 0; number /= 10, --digits)
        out += static_cast<char16_t>(u'0' + number % 10);
    std::reverse(out.begin() + static_cast<std::ptrdiff_t>(begin), out.end());
}

} // namespace

std::optional<NumericDate> NumericDate::parse(std::u16string_view pattern) {
    NumericDate date;
    date.parts_.emplace_back();
    for (std::size_t at = 0; at < pattern.size();) {
        const char16_t c = pattern[at];
        if (c == quote)
            return std::nullopt; // quoted words are rare
        if (!isLetter(c)) {
            date.parts_.back().then += c;
            ++at;
            continue;
        }
        const std::size_t end = std::min(pattern.find_first_not_of(c, at), pattern.size());
        if (!isNumber(c, end - at))
            return std::nullopt;
        date.parts_.push_back({.field = c, .digits = static_cast<int>(end - at)});
        at = end;
    }
    return date;
}

std::u16string NumericDate::text(const SystemTime& date) const {
    std::u16string text;
    for (const Part& part : parts_) {
        if (part.field == u'd')
            append(text, date.day, part.digits);
        else if (part.field == u'M')
            append(text, date.month, part.digits);
        else if (part.field == u'y')
            append(text, part.digits == 2 ? date.year % 100U : date.year, part.digits);
        text += part.then;
    }
    return text;
}

} // namespace hourwright::platform
