#include "exchange/ansi_bytes.h"

#include "exchange/ansi_tables.h"
#include "platform/utf.h"

#include <algorithm>
#include <array>
#include <utility>

namespace hourwright::exchange {

namespace {

constexpr char16_t replacement = 0xFFFD;
constexpr std::uint16_t western = 1252;
constexpr std::uint16_t symbol = 42;
constexpr std::uint16_t utf8 = 65001;

// Bytes 0x80 to 0x9F of code page 1252; the rest is as in Unicode.
constexpr std::array<char16_t, 32> westernHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::size_t sizeOfUtf8(unsigned char lead) {
    if (lead < 0xC2 || lead > 0xF4)
        return 1;
    return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
}

struct Charset {
    std::int32_t number;
    std::uint16_t codePage;
};

constexpr std::array charsets = {
    Charset{0, 1252},   Charset{2, symbol}, Charset{77, 10000}, Charset{128, 932},  Charset{129, 949},
    Charset{134, 936},  Charset{136, 950},  Charset{161, 1253}, Charset{162, 1254}, Charset{163, 1258},
    Charset{177, 1255}, Charset{178, 1256}, Charset{186, 1257}, Charset{204, 1251}, Charset{222, 874},
    Charset{238, 1250}, Charset{254, 437},  Charset{255, 850},
};

} // namespace

bool isMultiByteCodePage(std::uint16_t codePage) {
    return codePage == utf8 || codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950;
}

std::size_t sizeOfCharacter(std::uint16_t codePage, unsigned char lead) {
    if (codePage == utf8)
        return sizeOfUtf8(lead);
    const bool single = lead <= 0x80 || lead == 0xFF || (codePage == 932 && lead >= 0xA0 && lead < 0xE0);
    return single ? 1 : 2;
}

char16_t AnsiDecoder::character(std::uint16_t codePage, unsigned char byte) {
    if (codePage == symbol)
        return byte < 0x20 ? char16_t{byte} : static_cast<char16_t>(0xF000 + byte);
    if (byte < 0x80)
        return byte;
    if (codePage == western)
        return byte < 0xA0 ? westernHigh[byte - 0x80U] : char16_t{byte};
    const char16_t windows = upperAnsiCharacter(codePage, byte);
    const auto single = static_cast<char>(byte);
    return windows != replacement ? windows : read(codePage, {&single, 1});
}

void AnsiDecoder::append(std::u16string& out, std::uint16_t codePage, std::string_view bytes) {
    if (codePage == utf8) {
        out += platform::toUtf16(bytes);
        return;
    }
    out.push_back(read(codePage, bytes));
    const auto last = static_cast<unsigned char>(bytes.back());
    if (out.back() == replacement && last < 0x80)
        out.push_back(last);
}

char16_t AnsiDecoder::read(std::uint16_t codePage, std::string_view bytes) {
    auto found = std::ranges::find(readers_, codePage, &Reader::codePage);
    if (found == readers_.end()) {
        auto reader = platform::makeCodePageReader(codePage);
        if (reader == nullptr)
            return replacement;
        found = readers_.insert(found, {codePage, std::move(reader)});
    }
    return found->reader->character(bytes);
}

std::uint16_t codePageOfCharset(std::int32_t charset, std::uint16_t documentPage) {
    for (const Charset& known : charsets) {
        if (known.number == charset)
            return known.codePage;
    }
    return documentPage;
}

} // namespace hourwright::exchange
