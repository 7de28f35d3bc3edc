#include "desktop/note/note_text.h"

#include "desktop/desktop_fixture.h"

#include <QTextBlock>
#include <gtest/gtest.h>

namespace hourwright::desktop {
namespace {

using exchange::CharacterFormat;
using exchange::ForeignGroup;
using exchange::InkDrawing;
using exchange::NoteDocument;
using exchange::NoteItem;
using exchange::TextRun;
using exchange::VoiceClip;

constexpr CharacterFormat plain{};
constexpr CharacterFormat bold{.bold = true};
constexpr CharacterFormat all{.bold = true, .italic = true, .underline = true};
constexpr CharacterFormat hidden{.bold = true, .hidden = true};

const InkDrawing ink{.strokes = {{.colour = 0xFF0000FF, .width = 50, .points = {{1, 2, 3}, {400, 500, 60000}}}},
                     .picture = exchange::InkPicture{{std::byte{1}}, 2, 3, 4, 5}};
const VoiceClip voice{.format = "audio/ogg", .milliseconds = 1500, .data = {std::byte{7}, std::byte{8}}};

struct Case {
    const char* name;
    NoteDocument note;
};

const Case roundTrips[] = {
    {"nothing", {}},
    {"text", {{{false, {TextRun{u"a b", plain}}}}}},
    {"empty paragraphs", {{{false, {}}, {false, {}}, {false, {TextRun{u"x", plain}}}, {false, {}}}}},
    {"only an empty bullet", {{{true, {}}}}},
    {"formats", {{{false, {TextRun{u"a", plain}, TextRun{u"b", bold}, TextRun{u"c", all}, TextRun{u" d", plain}}}}}},
    {"bullets between text",
     {{{false, {TextRun{u"to do", bold}}},
       {true, {TextRun{u"one", plain}}},
       {true, {}},
       {false, {}},
       {true, {TextRun{u"two", plain}}}}}},
    {"line break and tab", {{{false, {TextRun{u"a\nb\tc\n", plain}}}}}},
    {"other scripts", {{{false, {TextRun{u"\u00E4\u00A0\u200B\u65E5\u672C \U0001F600 \u05D0", plain}}}}}},
    {"a lone surrogate", {{{false, {TextRun{std::u16string(u"a\xD83Dz"), plain}}}}}},
    {"characters that the toolkit uses itself", {{{false, {TextRun{u"a\u2028\u2029\uFDD0\uFDD1\uFFFC\u0001z", all}}}}}},
    {"hidden text", {{{false, {TextRun{u"a", plain}, TextRun{u"h\ni", hidden}, TextRun{u"b", plain}}}}}},
    {"ink, voice and foreign parts side by side",
     {{{true, {ink, ink, voice, TextRun{u"a", bold}, ForeignGroup{"{\\*\\x}"}, ForeignGroup{"{\\*\\x}"}}}}, 932}},
};

TEST(NoteText, GivesBackWhatItWasGiven) {
    for (const Case& c : roundTrips) {
        QTextDocument document;
        showNote(document, c.note);
        EXPECT_EQ(noteIn(document, c.note.codePage), c.note) << c.name;
        EXPECT_FALSE(document.isModified()) << c.name;
    }
}

TEST(NoteText, PastesIntoTheMiddleOfAParagraph) {
    QTextDocument document;
    showNote(document, {{{false, {TextRun{u"ad", plain}}}}});
    QTextCursor cursor(&document);
    cursor.setPosition(1);
    insertNote(cursor, {{{true, {TextRun{u"b", bold}}}, {true, {TextRun{u"c", plain}}}}});
    EXPECT_EQ(noteIn(document),
              (NoteDocument{{{false, {TextRun{u"a", plain}, TextRun{u"b", bold}}}, {true, {TextRun{u"cd", plain}}}}}));
    document.undo();
    EXPECT_EQ(noteIn(document), (NoteDocument{{{false, {TextRun{u"ad", plain}}}}}));
}

TEST(NoteText, BulletsComeAndGoForEverySelectedParagraph) {
    QTextDocument document;
    const auto note = [](bool first, bool second, bool third) {
        return NoteDocument{{{first, {TextRun{u"a", plain}}}, {second, {}}, {third, {TextRun{u"c", plain}}}}};
    };
    showNote(document, note(true, false, false));
    QTextCursor cursor(&document);
    cursor.setPosition(2);
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    setBullets(cursor, true);
    EXPECT_EQ(noteIn(document), note(true, true, true));
    cursor.setPosition(0);
    cursor.setPosition(2, QTextCursor::KeepAnchor);
    setBullets(cursor, false);
    EXPECT_EQ(noteIn(document), note(false, false, true));
    EXPECT_EQ(document.begin().blockFormat().indent(), 0);
}

} // namespace
} // namespace hourwright::desktop
