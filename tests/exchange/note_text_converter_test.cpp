#include "exchange/note_text_converter.h"

#include "exchange/note_bytes.h"
#include "exchange/note_merge.h"
#include "platform/utf.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace hourwright::exchange {
namespace {

std::u16string textOf(std::string_view blob) {
    NoteTextConverter converter;
    return std::u16string(converter.convert(bytesOf(blob)));
}

struct RtfCase {
    std::string_view rtf; ///< what stands between "{\rtf1 " and "}"
    std::u16string_view text;
};

void expectTexts(std::span<const RtfCase> cases) {
    for (const RtfCase& c : cases)
        EXPECT_EQ(textOf("{\\rtf1 " + std::string(c.rtf) + "}"), c.text) << c.rtf;
}

TEST(NoteTextConverter, Paragraphs) {
    const RtfCase cases[] = {
        {"", u""},
        {"a", u"a"},
        {"a\\par", u"a"},
        {"a\\par b\\par", u"a\r\nb"},
        {"a\\par\\par b", u"a\r\n\r\nb"},
        {"a\\par\\par", u"a\r\n"},
        {"a\r\nb\nc", u"abc"},
        {"a\\\nb\\\r\nc\\\rd", u"a\r\nb\r\nc\r\nd"},
        {"a\\line b\\page c", u"a\r\nb\r\nc"},
        {"a\\sect b\\par\\sect c", u"a\r\nb\r\nc"},
        {"\\trowd a\\cell b\\cell\\row c", u"a\tb\r\nc"},
        {"\\par\\par", u"\r\n"},
    };
    expectTexts(cases);
}

TEST(NoteTextConverter, Characters) {
    using namespace std::string_view_literals;
    const RtfCase cases[] = {
        {"\\{\\}\\\\\\~\\_\\-\\|\\:x", u"{}\\\u00A0\u2011\u00ADx"},
        {"\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote\\tab x", u"—–•‘’“”\tx"},
        {"\\'e4\\'80\\'95\\'C4", u"ä€•Ä"},
        {"\xE4\x80\tz", u"ä€\tz"},
        {"\\'zzx", u"zzx"},
        {"\\u8364?x", u"€x"},
        {"\\u8364 ?x", u"€x"},
        {"\\u8364 x", u"€"},
        {"\\uc0\\u8364 x", u"€x"},
        {"\\uc2\\u8364\\'80?x", u"€x"},
        {"\\uc2\\u8364\\tab\\{x", u"€x"},
        {"\\uc3\\u8364?}x", u"€"},
        {"\\uc2\\u8364?{x}", u"€x"},
        {"{\\uc0\\u8364}\\u8364?x", u"€€x"},
        {"\\uc2\\u8364\\bin3 {{{?x", u"€x"},
        {"\\u-10179?\\u-8700?", u"\U0001F604"},
        {"\\u128516?", u"\U0001F604"},
        {"\\u55357?x", std::u16string_view(u"\xD83Dx", 2)},
        {"a\\u0?b\\'00c\0d"sv, u"abcd"},
        {"a\\u13?b\\u10?c\\'0dd", u"a\r\nb\r\nc\r\nd"},
        {"\\unknown1word\\bold3x", u"wordx"},
        {"\\b1 a\\i-0 b", u"ab"},
    };
    expectTexts(cases);
}

TEST(NoteTextConverter, CodePages) {
    const RtfCase cases[] = {
        {"\\ansicpg65001 \\'e2\\'82\\'ac\xE2\x82\xAC.", u"€€."},
        {"\\ansicpg65001 \\'e2\\'82x\\'e2\\par y", u"\uFFFD\uFFFDx\uFFFD\r\ny"},
        {"\\ansicpg65001 a\\'e2\\'00\\'0db", u"a\uFFFD\r\nb"},
        {"\\ansicpg1250 \\'e8\\'9a", u"čš"},
        {"\\ansicpg1251 \\'cf\\'f0\xE8", u"При"},
        {"\\ansicpg874 \\'a1\\'ff", u"\u0E01\uFFFD"},
        {"\\ansicpg1258 \\'ff", u"ÿ"},
        {"\\mac \\'8a\\'d0", u"ä–"},
        {"\\pc \\'8a", u"è"},
        {"\\pca \\'d0", u"ð"},
        {"\\ansicpg1361 \\'8a", u"\uFFFD"},
        {"{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\cpg1253 B;}}\\f0\\'e4\\f1\\'e4\\plain\\'e4", u"дδä"},
        {"{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset2 S;}}\\f1\\'b7\\f0\\'b7", u"\uF0B7\u00B7"},
        {"\\ansicpg1251{\\fonttbl{\\f7\\fcharset0 A;}}{\\f7\\'e4}\\'e4", u"äд"},
        {"\\deff1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}\\'e4\\f0\\'e4\\plain\\'e4", u"дäд"},
        {"\\ansicpg1253\\deff9{\\fonttbl{\\f0\\fcharset0 A;}}\\'e4", u"δ"},
    };
    expectTexts(cases);
}

TEST(NoteTextConverter, CharactersOfTwoBytes) {
    const RtfCase cases[] = {
        {"\\ansicpg932 \\'83\\'5c\\'95\\'5c\\'94\\'5c", u"ソ表能"},
        {"\\ansicpg932 \\'83\\\\\\'83A\\'83\\{\\'83\\}", u"ソアボマ"},
        {"\\ansicpg932 \x83\\'41\x83g\xB1\\'b2x", u"アトｱｲx"},
        {"\\ansicpg936 \\'d6\\'d0\\'ce\\'c4\\'80", u"中文€"},
        {"\\ansicpg949 \\'c7\\'d1\\'b1\\'b9\\'8c\\'63", u"한국똠"},
        {"\\ansicpg950 \\'a5\\'5c\\'b3\\'5c\\'bb\\'5c", u"功許蓋"},
        {"\\ansicpg932 \\'82\r\n\\'a0", u"あ"},
        {"\\ansicpg932 \\uc2\\u12354\\'82\\'a0.", u"あ."},
        // What is no pair costs its lead byte only.
        {"\\ansicpg932 \\'82 1\\'82\\'30\\'82\\\\'", u"\uFFFD 1\uFFFD0\uFFFD\\'"},
        {"\\ansicpg932 \\'82\\par\\'b1\\'82{\\'b1}\\'82\\b\\'b1", u"\uFFFD\r\nｱ\uFFFDｱ\uFFFDｱ"},
        {"\\ansicpg949 \\'b0[\\'81\\'40\\'b0\\'80x", u"\uFFFD[\uFFFD@\uFFFDx"},
        {"\\ansicpg936 \\'d6\\'00x\\'d6", u"\uFFFDx\uFFFD"},
        // The font decides, whatever the document is in.
        {"\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset128 B;}{\\f2\\fcharset129 C;}"
         "{\\f3\\fcharset134 D;}{\\f4\\fcharset136 "
         "E;}}\\'e4\\f1\\'82\\'a0\\f2\\'c7\\'d1{\\f3\\'d6\\'d0}\\f4\\'a4\\'a4\\f0\\'e4",
         u"äあ한中中ä"},
        {"\\deff1{\\fonttbl{\\f1\\fcharset128 B;}}\\pard\\'82\\'a0", u"あ"},
    };
    expectTexts(cases);
}

TEST(NoteTextConverter, FieldsShowTheirResult) {
    const RtfCase cases[] = {
        {"a{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt{b}}}c", u"abc"},
        {"a{\\field{\\*\\fldinst x}{\\*\\fldrslt{b}}}c", u"abc"},
        {"a\\cell b\\cell{\\*\\abiendcell}\\row c{\\*\\listtag0}", u"a\tb\r\nc"},
    };
    expectTexts(cases);
}

TEST(NoteTextConverter, WhatIsNoText) {
    const RtfCase cases[] = {
        {"{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1;}{\\stylesheet{Normal;}}{\\info{\\title T}}a", u"a"},
        {"{\\*\\unknown x{y}}a", u"a"},
        {"{ \\*\\unknown x}a", u" xa"},
        {"a{\\header h\\par}{\\footnote f}{\\pict 00}{\\object{\\result r}}b", u"ab"},
        {"{\\v hidden}a{\\v\\par}b", u"a\r\nb"},
        {"{\\*\\hwink1 00}\\par", u""},
        {"{\\*\\hwink1 00}\\par{\\*\\hwvoice1 0000}\\par", u""},
        {"{\\*\\hwink1 00}a\\par", u"a"},
        {"{\\pict\\pngblip 00}\\par\\par", u""},
        {"{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt shown}}", u"shown"},
        {"\\pard{\\pntext\\f1\\'B7\\tab}a\\par{\\listtext 1.\\tab}b\\par{\\listtext\\pard o\\tab}c",
         u"a\r\n1.\tb\r\nc"},
    };
    expectTexts(cases);
}

TEST(NoteTextConverter, DamagedBytes) {
    struct Case {
        std::string_view blob;
        std::u16string_view text;
    };
    const Case cases[] = {
        {"{\\rtf", u""},
        {"{\\rtf1", u""},
        {"{\\rtf1 a\\", u"a"},
        {"{\\rtf1 a\\'", u"a"},
        {"{\\rtf1 a\\'e", u"ae"},
        {"{\\rtf1 a\\u", u"a"},
        {"{\\rtf1 a{", u"a"},
        {"{\\rtf1 a{\\*", u"a"},
        {"{\\rtf1 a{\\*\\x {b}", u"a"},
        {"{\\rtf1 a{\\pict 00", u"a"},
        {"{\\rtf1 a}b}c", u"a"},
        {"{\\rtf1 a{{b}", u"ab"},
        {"{\\rtf1 a\\bin99999999999999999999 b}", u"a"},
        {"{\\rtf1 a\\bin-5 b}", u"ab"},
        {"{\\rtf1 {\\*\\x\\bin99 }}a}", u""},
        {"{\\rtf1 a\\uc-3\\u8364 b}", u"a€b"},
        {"{\\rtf1 a\\u99999999999?b}", u"a\uFFFFb"},
        {"{\\rtf1 {\\fonttbl a", u""},
        {"{\\rtf1 a{\\listtext b", u"a"},
        {"}", u"}"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(textOf(c.blob), c.text) << c.blob;
}

// A million braces end in time and without a deep stack; groups beyond the limit only lose their own formats.
TEST(NoteTextConverter, DeepNesting) {
    const std::string open(1'000'000, '{');
    const std::string close(1'000'000, '}');
    EXPECT_EQ(textOf("{\\rtf1 a" + open + "b" + close + "c}"), u"abc");
    EXPECT_EQ(textOf("{\\rtf1 a" + open + "b"), u"ab");
    EXPECT_EQ(textOf("{\\rtf1 a{\\*\\x " + open + close + "}b}"), u"ab");
    EXPECT_EQ(textOf("{\\rtf1 a{\\*\\x " + open), u"a");
}

TEST(NoteTextConverter, UsesNothingOfTheNoteBefore) {
    NoteTextConverter converter;
    EXPECT_EQ(converter.convert(bytesOf("{\\rtf1\\ansicpg65001{\\fonttbl{\\f0\\fcharset2 S;}}\\b\\v x{\\f0\\uc0\\'c3")),
              u"");
    EXPECT_EQ(converter.convert(bytesOf("{\\rtf1\\f0\\'e4\\u8364?}")), u"ä€");
    EXPECT_EQ(converter.convert(bytesOf("plain\ntext")), u"plain\r\ntext");
    EXPECT_EQ(converter.convert(bytesOf("\x01\x02")), u"");
    EXPECT_EQ(converter.convert({}), u"");
}

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Documents as word processors write them, each with its text beside it.
TEST(NoteTextConverter, DocumentsOfWordProcessors) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(HOURWRIGHT_TEST_DATA "/notes")) {
        if (entry.path().extension() != ".rtf")
            continue;
        ++count;
        const std::string blob = contentOf(entry.path());
        const std::u16string expected =
            platform::toUtf16(contentOf(std::filesystem::path(entry.path()).replace_extension(".txt")));
        std::u16string text = textOf(blob);
        std::erase(text, u'\r');
        EXPECT_EQ(text, expected) << entry.path();
        const auto note = readNote(bytesOf(blob));
        ASSERT_TRUE(note);
        EXPECT_EQ(readNote(writeNote(*note)), note) << entry.path();
    }
    EXPECT_GE(count, 5U);
}

TEST(NoteDocumentFormats, OfAWordProcessor) {
    const auto note = readNote(bytesOf(contentOf(HOURWRIGHT_TEST_DATA "/notes/wordpad.rtf")));
    ASSERT_TRUE(note);
    ASSERT_EQ(note->paragraphs.size(), 4U);
    EXPECT_EQ(note->paragraphs[0].items[1], NoteItem(TextRun{u"Müller & Söhne", {.bold = true}}));
    const bool bullets[] = {false, true, true, false};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(note->paragraphs[i].bullet, bullets[i]) << i;
}

// A note with a drawing and a recording, opened and saved by two word processors: both lose the recording and keep the
// drawing's picture.
TEST(NoteDocumentFormats, DrawingsAndRecordingsComeBack) {
    const InkDrawing ink{.strokes = {}, .picture = InkPicture{{}, 6, 5, 90, 75}};
    const VoiceClip voice{"audio/ogg", 1000, {std::byte{1}}};
    const NoteDocument before{{{false, {ink, voice}}}};
    for (const std::string_view name : {"libreoffice_ours", "abiword_ours"}) {
        const auto edited =
            readNote(bytesOf(contentOf(std::string(HOURWRIGHT_TEST_DATA "/notes/").append(name) + ".rtf")));
        ASSERT_TRUE(edited);
        std::vector<NoteItem> objects;
        for (const NoteParagraph& paragraph : withLostObjects(*edited, before).paragraphs)
            std::ranges::copy_if(paragraph.items, std::back_inserter(objects),
                                 [](const NoteItem& item) { return !std::holds_alternative<TextRun>(item); });
        EXPECT_EQ(objects, (std::vector<NoteItem>{ink, voice})) << name;
    }
}

// This program's own note after a word processor has opened and saved it.
TEST(NoteDocumentFormats, BackFromAWordProcessor) {
    const auto note = readNote(bytesOf(contentOf(HOURWRIGHT_TEST_DATA "/notes/libreoffice_returned.rtf")));
    ASSERT_TRUE(note);
    const CharacterFormat bold{.bold = true};
    const CharacterFormat italic{.italic = true};
    const CharacterFormat hidden{.hidden = true};
    const std::vector<NoteParagraph> expected{
        {false, {TextRun{u"Agenda", bold}}},
        {true, {TextRun{u"one", {}}}},
        {true, {TextRun{u"two ", {}}, TextRun{u"x", italic}}},
        {false, {TextRun{u"end \U0001F600\u65E5", {}}, TextRun{u"hid", hidden}}},
        {false, {}},
    };
    EXPECT_EQ(note->paragraphs, expected);
}

} // namespace
} // namespace hourwright::exchange
