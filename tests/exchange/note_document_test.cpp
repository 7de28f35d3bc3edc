#include "exchange/note_document.h"

#include "exchange/note_bytes.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {
namespace {

NoteParagraph paragraphOf(std::u16string text) {
    NoteParagraph paragraph;
    if (!text.empty())
        paragraph.items.emplace_back(TextRun{std::move(text), {}});
    return paragraph;
}

InkDrawing someInk() {
    InkDrawing ink;
    ink.strokes.push_back(
        {0x80112233, 35, {{0, 0, 0}, {-5, 7, 65535}, {2147483647, -2147483647 - 1, 300}, {-2147483647 - 1, 0, 1}}});
    ink.strokes.push_back({0xFFFFFFFF, 4294967295U, {}});
    return ink;
}

// Every member differs from its default somewhere.
NoteDocument fullNote() {
    NoteDocument note;
    note.codePage = 1251;
    note.paragraphs.resize(5);
    note.paragraphs[0].items = {
        TextRun{u"plain {\\} \t tab\nline", {}},
        TextRun{u"bold", {.bold = true}},
        TextRun{u"all", {.bold = true, .italic = true, .underline = true, .hidden = true}},
        TextRun{u"italic \u20AC \u00E4 \U0001F604", {.italic = true}},
        TextRun{std::u16string{0xD83D, u'x', 0xDE04, 0x7F, 1, 0xFFFF, 0x8000}, {.underline = true}},
    };
    note.paragraphs[1].bullet = true;
    note.paragraphs[2].bullet = true;
    note.paragraphs[2].items = {TextRun{u"second bullet", {}}};
    InkDrawing drawn = someInk();
    drawn.picture = InkPicture{bytesOf("\x89PNG{}\\\x01"), 10, 20, 300, 400};
    note.paragraphs[3].items = {drawn, TextRun{u"between", {}}, someInk(),
                                ForeignGroup{"{\\pict\\pngblip\\picw1\\pich1\\picwgoal1\\pichgoal1\r\n00}"}};
    note.paragraphs[4].items = {VoiceClip{"audio/ogg", 4294967295U, bytesOf(std::string(200, '\xFE'))},
                                VoiceClip{"", 0, {}}, ForeignGroup{"{\\*\\stranger {\\'7d\\}}}"}};
    return note;
}

TEST(NoteDocument, SurvivesWritingAndReading) {
    const NoteDocument note = fullNote();
    const auto bytes = writeNote(note);
    const auto again = readNote(bytes);
    ASSERT_TRUE(again);
    EXPECT_EQ(*again, note) << charsOf(bytes);
}

TEST(NoteDocument, EmptyParagraphsAreCounted) {
    for (std::size_t count = 0; count < 4; ++count) {
        NoteDocument note;
        note.paragraphs.resize(count);
        EXPECT_EQ(readNote(writeNote(note)), note) << count;
    }
}

TEST(NoteDocument, BytesAreTheDocumentedOnes) {
    NoteDocument note = fromPlainText(u"a\u00E9");
    note.paragraphs[0].items.emplace_back(TextRun{u"b", {.bold = true}});
    note.paragraphs.push_back({true, {TextRun{u"c", {}}}});
    note.paragraphs.push_back({true, {}});
    InkDrawing ink{{{0xFF000000, 26, {{1, -1, 512}}}}, InkPicture{bytesOf("\x89P"), 1, 2, 3, 4}};
    note.paragraphs.push_back({false, {ink, VoiceClip{"a/b", 1000, bytesOf("\x7F")}}});
    EXPECT_EQ(charsOf(writeNote(note)),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0 Tahoma;}}\\pard\\fs20 a\\u233?\\b b\\par\r\n"
              "\\pard{\\pntext\\bullet\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\bullet}}\\fi-360\\li360 \\b0 c\\par\r\n"
              "{\\pntext\\bullet\\tab}\\par\r\n"
              "\\pard {\\*\\hwink1\\hwpict\r\n01808080f80f1a0102018004}"
              "{\\pict\\pngblip\\picw1\\pich2\\picwgoal3\\pichgoal4\r\n8950}"
              "{\\*\\hwvoice1\r\ne80703612f627f}\\par\r\n}");
}

TEST(NoteDocument, FromPlainText) {
    struct Case {
        std::u16string_view text;
        std::vector<NoteParagraph> paragraphs;
    };
    const Case cases[] = {
        {u"", {}},
        {u"one", {paragraphOf(u"one")}},
        {u"a\r\nb\nc\rd", {paragraphOf(u"a"), paragraphOf(u"b"), paragraphOf(u"c"), paragraphOf(u"d")}},
        {u"a\n\r\nb", {paragraphOf(u"a"), paragraphOf(u""), paragraphOf(u"b")}},
        {u"a\n", {paragraphOf(u"a"), paragraphOf(u"")}},
        {std::u16string_view(u"a\0b", 3), {paragraphOf(u"a")}},
        {std::u16string_view(u"\0b", 2), {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(fromPlainText(c.text).paragraphs, c.paragraphs) << testing::PrintToString(c.text);
}

// Groups that this program cannot take apart are kept as they stand, at their place.
TEST(NoteDocument, KeepsWhatItDoesNotKnow) {
    const std::string_view groups[] = {
        "{\\*\\stranger 1 2 {3}}",
        "{\\pict\\wmetafile8\\picw1 0102}",
        "{\\object\\objemb{\\*\\objdata 00}{\\result picture}}",
        "{\\*\\hwink2 00}",             // a later version
        "{\\*\\hwink1 0}",              // half a byte
        "{\\*\\hwink1 0180}",           // cut off
        "{\\*\\hwink1 0000}",           // more than it says
        "{\\*\\hwink1 8000}",           // a number longer than needed
        "{\\*\\hwink1 ffffffff0f}",     // more strokes than bytes
        "{\\*\\hwink1 01000001000080}", // a point cut off
        "{\\*\\hwink1\\hwother 00}",    // a word of a later version
        "{\\*\\hwvoice1 0005}",         // a format longer than the group
        "{\\*\\hwvoice1 {00}}",
        "{\\*\\stranger\\bin4 }}}}}",
        "{\\footnote not in the text}",
    };
    for (const std::string_view group : groups) {
        const std::string rtf = "{\\rtf1 x" + std::string(group) + "y\\par}";
        NoteDocument expected = fromPlainText(u"x");
        expected.paragraphs[0].items.emplace_back(ForeignGroup{std::string(group)});
        expected.paragraphs[0].items.emplace_back(TextRun{u"y", {}});
        const auto note = readNote(bytesOf(rtf));
        EXPECT_EQ(note, expected) << group;
        EXPECT_EQ(readNote(writeNote(*note)), expected) << group;
    }
}

TEST(NoteDocument, PictureBelongsToTheInkThatAnnouncesIt) {
    const std::string picture = "{\\pict\\pngblip\\picw1\\pich1\\picwgoal1\\pichgoal1 00}";
    const auto itemsOf = [](const std::string& content) {
        return readNote(bytesOf("{\\rtf1 " + content + "\\par}"))->paragraphs.at(0).items.size();
    };
    EXPECT_EQ(itemsOf("{\\*\\hwink1\\hwpict 00}" + picture), 1U);
    EXPECT_EQ(itemsOf("{\\*\\hwink1 00}" + picture), 2U);
    EXPECT_EQ(itemsOf("{\\*\\hwink1\\hwpict 00}x" + picture), 3U);
    EXPECT_EQ(itemsOf("{\\*\\hwink1\\hwpict 00}{\\pict\\jpegblip 00}"), 2U);
}

TEST(NoteDocument, BlobsThatAreNoRtf) {
    struct Case {
        std::string_view name;
        std::string_view blob;
        std::optional<NoteDocument> note;
    };
    using namespace std::string_view_literals;
    const Case cases[] = {
        {"nothing", "", NoteDocument{}},
        {"ASCII", "ab\r\nc", fromPlainText(u"ab\nc")},
        {"UTF-8", "\xC3\xA4", fromPlainText(u"\u00E4")},
        {"UTF-8 with mark", "\xEF\xBB\xBF\xC3\xA4", fromPlainText(u"\u00E4")},
        {"UTF-16 with mark", "\xFF\xFE\x3D\xD8\x04\xDE", fromPlainText(u"\U0001F604")},
        {"UTF-16 without", "a\0\xE4\0"sv, fromPlainText(u"a\u00E4")},
        {"UTF-16 with its end", "a\0\0\0"sv, fromPlainText(u"a")},
        {"text up to NUL", "abc\0\x01\xFF"sv, fromPlainText(u"abc")},
        {"control bytes", "\x01\x02\x03", std::nullopt},
        {"not UTF-8", "ab\xFF", std::nullopt},
        {"NUL bytes", "\0\0\0"sv, NoteDocument{}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(readNote(bytesOf(c.blob)), c.note) << c.name;
}

} // namespace
} // namespace hourwright::exchange
