#include "exchange/markup_escape.h"

namespace hourwright::exchange {

namespace {

constexpr std::size_t longestReplacement = 6;

const Escape* findEscape(std::span<const Escape> escapes, char16_t unit) {
    for (const Escape& escape : escapes)
        if (escape.unit == unit)
            return &escape;
    return nullptr;
}

// Every character that has an escape is one of " & ' < >: a bit each, counted from the first.
constexpr char16_t firstEscaped = u'"';
constexpr unsigned escapedBits = 1U | 1U << (u'&' - firstEscaped) | 1U << (u'\'' - firstEscaped) |
                                 1U << (u'<' - firstEscaped) | 1U << (u'>' - firstEscaped);

bool mayBeEscaped(char16_t unit) {
    const unsigned offset = unsigned{unit} - firstEscaped;
    return offset < 32 && (escapedBits >> offset & 1U) != 0;
}

} // namespace

void appendEscaped(std::u16string& out, std::u16string_view text, std::span<const Escape> escapes) {
    std::size_t copied = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const Escape* const escape = mayBeEscaped(text[i]) ? findEscape(escapes, text[i]) : nullptr;
        if (!escape)
            continue;
        out.append(text, copied, i - copied).append(escape->replacement);
        copied = i + 1;
    }
    out.append(text, copied);
}

// Most texts have few escapes, so a tenth is room enough as a rule.
std::u16string escaped(std::u16string_view text, std::span<const Escape> escapes) {
    std::u16string out;
    out.reserve(text.size() + text.size() / 10 + longestReplacement + 1);
    appendEscaped(out, text, escapes);
    return out;
}

} // namespace hourwright::exchange
