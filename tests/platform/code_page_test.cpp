#include "platform/icu/icu_code_page.h"

#include <gtest/gtest.h>

namespace hourwright::platform {
namespace {

constexpr std::uint32_t allNumbers[] = {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

TEST(CodePageTest, onlyTheFourteenNumbersExist) {
    for (const std::uint32_t number : allNumbers) {
        const auto page = makeIcuCodePage(number);
        ASSERT_TRUE(page) << number;
        EXPECT_EQ(page->number(), number);
    }
    for (const std::uint32_t number : {0U, 437U, 875U, 1249U, 1259U, 65001U})
        EXPECT_FALSE(makeIcuCodePage(number)) << number;
}

TEST(CodePageTest, asciiIsTheSameInEveryCodePage) {
    std::u16string text;
    std::string expected;
    for (char c = 0; c >= 0 && c < 127; ++c) {
        text.push_back(static_cast<char16_t>(c));
        expected.push_back(c);
    }
    text.push_back(u'\x7F');
    expected.push_back('\x7F');
    for (const std::uint32_t number : allNumbers)
        EXPECT_EQ(makeIcuCodePage(number)->convert(text), expected) << number;
}

TEST(CodePageTest, charactersOfEachCodePage) {
    const struct {
        std::uint32_t number;
        std::u16string text;
        std::string expected;
    } cases[] = {
        {1250, u"Łódź Žižka €", "\xA3\xF3\x64\x9F \x8Ei\x9Eka \x80"},
        {1251, u"Иван Ґ ў", "\xC8\xE2\xE0\xED \xA5 \xA2"},
        {1252, u"Müller & Söhne – 10 €", "M\xFCller & S\xF6hne \x96 10 \x80"},
        {1253, u"Αθήνα", "\xC1\xE8\xDE\xED\xE1"},
        {1254, u"İşçi ğ", "\xDD\xFE\xE7i \xF0"},
        {1255, u"שלום", "\xF9\xEC\xE5\xED"},
        {1256, u"سلام پ", "\xD3\xE1\xC7\xE3 \x81"},
        {1257, u"Šiauliai ė ņ", "\xD0iauliai \xEB \xF2"},
        {1258, u"Đồng ₫", "\xD0?ng \xFE"},
        {874, u"ไทย", "\xE4\xB7\xC2"},
        {932, u"日本 ｱ ①", "\x93\xFA\x96\x7B \xB1 \x87\x40"},
        {936, u"中文 €", "\xD6\xD0\xCE\xC4 \x80"},
        {949, u"한국 똠", "\xC7\xD1\xB1\xB9 \x8C\x63"},
        {950, u"中文 碁", "\xA4\xA4\xA4\xE5 \xF9\xD6"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(makeIcuCodePage(c.number)->convert(c.text), c.expected) << c.number;
}

TEST(CodePageTest, whatACodePageLacksBecomesTheDefaultCharacter) {
    const struct {
        const char* name;
        std::uint32_t number;
        std::u16string text;
        std::string expected;
    } cases[] = {
        {"other script", 1252, u"aЖb", "a?b"},
        {"letter like another is not replaced by it", 1252, u"Āā∞", "???"},
        {"fullwidth letter", 1252, u"ＡＢ", "??"},
        {"undotted letter", 1251, u"ı", "?"},
        {"yen sign is no backslash", 932, u"¥", "?"},
        {"overline is no tilde", 932, u"‾", "?"},
        {"minus sign that does not come back", 932, u"\u2212", "?"},
        {"private-use character that does not come back", 932, u"\uF86F", "?"},
        {"accents apart from their letter", 1252, u"e\u0301", "e?"},
        {"two default characters for a surrogate pair", 1252, u"a\U0001F600b", "a??b"},
        {"two in a double-byte code page", 932, u"\U00020B9F", "??"},
        {"and in Chinese ones", 936, u"\U00020B9F", "??"},
        {"lone surrogates", 1252, {u'a', char16_t{0xD83D}, u'b', char16_t{0xDE00}}, "a?b?"},
        {"surrogates the wrong way round", 950, {char16_t{0xDE00}, char16_t{0xD83D}}, "??"},
        {"lone surrogate at the end", 949, {u'한', char16_t{0xD83D}}, "\xC7\xD1?"},
        {"last unit", 1252, u"\uFFFF\uFFFE", "??"},
        {"zero inside", 1252, {u'a', u'\0', u'é'}, std::string("a\0\xE9", 3)},
        {"nothing", 932, u"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(makeIcuCodePage(c.number)->convert(c.text), c.expected) << c.name;
}

TEST(CodePageTest, everyUnitGivesAtLeastOneByteAndAtMostTwo) {
    for (const std::uint32_t number : allNumbers) {
        const auto page = makeIcuCodePage(number);
        const std::size_t most = number < 1000 && number != 874 ? 2 : 1;
        for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
            const char16_t text = static_cast<char16_t>(unit);
            const std::size_t size = page->convert({&text, 1}).size();
            ASSERT_TRUE(size >= 1 && size <= most) << number << ": unit " << unit << " gives " << size;
        }
    }
}

TEST(CodePageTest, aCharacterIsFoundWhereverItStands) {
    const auto western = makeIcuCodePage(1252);
    const auto japanese = makeIcuCodePage(932);
    for (std::size_t length = 1; length <= 40; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            const std::string before(at, 'x');
            const std::string after(length - at - 1, 'y');
            std::u16string text = std::u16string(at, u'x') + u'é' + std::u16string(length - at - 1, u'y');
            EXPECT_EQ(western->convert(text), before + "\xE9" + after) << at << " of " << length;
            text[at] = u'日';
            EXPECT_EQ(japanese->convert(text), before + "\x93\xFA" + after) << at << " of " << length;
        }
    }
}

TEST(CodePageTest, convertCutKeepsAsManyBytesAsThereWereUnits) {
    const struct {
        const char* name;
        std::uint32_t number;
        std::u16string text;
        std::string expected;
    } cases[] = {
        {"single bytes lose nothing", 1252, u"Söhne\r\n", "S\xF6hne\r\n"},
        {"one double byte costs one byte", 932, u"日\r\n", "\x93\xFA\r"},
        {"a character may be cut in half", 932, u"a日本", "a\x93\xFA"},
        {"half a character", 932, u"日本語", "\x93\xFA\x96"},
        {"default characters are single bytes", 932, u"\U0001F600日", std::string("??") + "\x93"},
        {"nothing", 932, u"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(makeIcuCodePage(c.number)->convertCut(c.text), c.expected) << c.name;
}

} // namespace
} // namespace hourwright::platform
