#include "exchange/rtf_keywords.h"

#include <array>
#include <cstddef>

namespace hourwright::exchange {

namespace {

struct Row {
    std::string_view word;
    RtfKeyword keyword;
    std::uint16_t value = 0;
};

using enum RtfKeyword;

constexpr std::array rows = {
    Row{"par", paragraph},
    Row{"sect", section},
    Row{"row", row},
    Row{"nestrow", row},
    Row{"b", bold},
    Row{"i", italic},
    Row{"ul", underline},
    Row{"uld", underline},
    Row{"uldash", underline},
    Row{"uldashd", underline},
    Row{"uldashdd", underline},
    Row{"uldb", underline},
    Row{"ulth", underline},
    Row{"ulw", underline},
    Row{"ulwave", underline},
    Row{"ulnone", noUnderline},
    Row{"v", hidden},
    Row{"deleted", hidden},
    Row{"plain", plain},
    Row{"pard", paragraphDefaults},
    Row{"f", font},
    Row{"deff", defaultFont},
    Row{"fcharset", fontCharset},
    Row{"cpg", fontCodePage},
    Row{"ansicpg", codePage},
    Row{"mac", namedCodePage, 10000},
    Row{"pc", namedCodePage, 437},
    Row{"pca", namedCodePage, 850},
    Row{"fldrslt", fieldResult},
    Row{"u", unicode},
    Row{"uc", unicodeSkip},
    Row{"bin", binary},

    Row{"tab", character, u'\t'},
    Row{"cell", character, u'\t'},
    Row{"nestcell", character, u'\t'},
    Row{"line", character, u'\n'},
    Row{"softline", character, u'\n'},
    Row{"lbr", character, u'\n'},
    Row{"page", character, u'\n'},
    Row{"column", character, u'\n'},
    Row{"emdash", character, 0x2014},
    Row{"endash", character, 0x2013},
    Row{"emspace", character, 0x2003},
    Row{"enspace", character, 0x2002},
    Row{"qmspace", character, 0x2005},
    Row{"bullet", character, 0x2022},
    Row{"lquote", character, 0x2018},
    Row{"rquote", character, 0x2019},
    Row{"ldblquote", character, 0x201C},
    Row{"rdblquote", character, 0x201D},
    Row{"zwj", character, 0x200D},
    Row{"zwnj", character, 0x200C},
    Row{"zwbo", character, 0x200B},
    Row{"zwnbo", character, 0x2060},
    Row{"ltrmark", character, 0x200E},
    Row{"rtlmark", character, 0x200F},

    Row{"fonttbl", fontTable},
    Row{"listtext", listText},
    Row{"pntext", listText},
    Row{"pn", numbering},
    Row{"hwink", ink},
    Row{"hwvoice", voice},
    Row{"pict", picture},

    Row{"abicellprops", dropped},
    Row{"abiendcell", dropped},
    Row{"abiendtable", dropped},
    Row{"abilist", dropped},
    Row{"abitableprops", dropped},
    Row{"aftncn", dropped},
    Row{"aftnsep", dropped},
    Row{"aftnsepc", dropped},
    Row{"colorschememapping", dropped},
    Row{"colortbl", dropped},
    Row{"datastore", dropped},
    Row{"defchp", dropped},
    Row{"defpap", dropped},
    Row{"docvar", dropped},
    Row{"fchars", dropped},
    Row{"filetbl", dropped},
    Row{"fldinst", dropped},
    Row{"ftncn", dropped},
    Row{"ftnsep", dropped},
    Row{"ftnsepc", dropped},
    Row{"generator", dropped},
    Row{"info", dropped},
    Row{"latentstyles", dropped},
    Row{"lchars", dropped},
    Row{"listoverridetable", dropped},
    Row{"listpicture", dropped},
    Row{"listtable", dropped},
    Row{"listtag", dropped},
    Row{"mmathPr", dropped},
    Row{"passwordhash", dropped},
    Row{"pgdsctbl", dropped},
    Row{"pgptbl", dropped},
    Row{"pnseclvl", dropped},
    Row{"rdf", dropped},
    Row{"revtbl", dropped},
    Row{"rsidtbl", dropped},
    Row{"stylesheet", dropped},
    Row{"template", dropped},
    Row{"themedata", dropped},
    Row{"userprops", dropped},
    Row{"wgrffmtfilter", dropped},
    Row{"xmlnstbl", dropped},

    Row{"annotation", kept},
    Row{"background", kept},
    Row{"do", kept},
    Row{"footer", kept},
    Row{"footerf", kept},
    Row{"footerl", kept},
    Row{"footerr", kept},
    Row{"footnote", kept},
    Row{"header", kept},
    Row{"headerf", kept},
    Row{"headerl", kept},
    Row{"headerr", kept},
    Row{"nonshppict", kept},
    Row{"object", kept},
    Row{"private", kept},
    Row{"rxe", kept},
    Row{"shp", kept},
    Row{"tc", kept},
    Row{"txe", kept},
    Row{"xe", kept},
};

constexpr std::size_t slotCount = 512;
static_assert(rows.size() * 3 < slotCount);

constexpr std::size_t slotOf(std::string_view word) {
    std::uint32_t hash = 2166136261U;
    for (const char c : word)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return (hash ^ hash >> 15) % slotCount;
}

// Open addressing; 0 is a free slot, otherwise one more than the row.
constexpr auto slots = [] {
    std::array<std::uint8_t, slotCount> table{};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::size_t slot = slotOf(rows[i].word);
        while (table[slot] != 0)
            slot = (slot + 1) % slotCount;
        table[slot] = static_cast<std::uint8_t>(i + 1);
    }
    return table;
}();
static_assert(rows.size() < 255);

} // namespace

RtfKeywordInfo findRtfKeyword(std::string_view word) {
    for (std::size_t slot = slotOf(word); slots[slot] != 0; slot = (slot + 1) % slotCount) {
        const Row& found = rows[slots[slot] - 1U];
        if (found.word == word)
            return {found.keyword, found.value};
    }
    return {};
}

} // namespace hourwright::exchange
