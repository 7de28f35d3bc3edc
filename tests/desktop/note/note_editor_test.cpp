#include "desktop/note/note_editor.h"

#include "desktop/desktop_fixture.h"
#include "desktop/note/note_text_edit.h"
#include "exchange/note_bytes.h"
#include "exchange/note_document.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

namespace hourwright::desktop {
namespace {

using exchange::bytesOf;
using exchange::charsOf;
using exchange::NoteDocument;
using exchange::TextRun;

class NoteEditorTest : public test::DesktopFixture {
protected:
    NoteEditorTest() : editor_(workspace()), text_(editor_.findChild<NoteTextEdit*>()) {
        editor_.show();
        editor_.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&editor_));
        text_->setFocus();
    }

    void show(std::string_view rtf) { editor_.setNote(bytesOf(rtf)); }
    [[nodiscard]] NoteDocument shown() const {
        return exchange::readNote(editor_.note().value_or(billing::NoteDraft{}).blob).value_or(NoteDocument{});
    }

    NoteEditor editor_;
    NoteTextEdit* text_;
};

TEST_F(NoteEditorTest, ANoteThatIsOnlyLookedAtStaysAsItIs) {
    for (const char* blob : {"", "{\\rtf1\\b odd\\cf3  but{\\*\\foreign 12}\\par}", "plain text", "\x01\x02\xFF"}) {
        show(blob);
        QTest::keyClick(text_, Qt::Key_End);
        editor_.resize(300, 200);
        EXPECT_EQ(editor_.note(), std::nullopt) << blob;
    }
}

TEST_F(NoteEditorTest, AChangeThatIsUndoneIsNone) {
    show("{\\rtf1 a\\par}");
    QTest::keyClicks(text_, "bc");
    ASSERT_NE(editor_.note(), std::nullopt);
    QTest::keyClick(text_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor_.note(), std::nullopt);
}

TEST_F(NoteEditorTest, KeepsWhatItDoesNotKnowWhileTextIsTyped) {
    show("{\\rtf1 a{\\*\\foreign 12}{\\v secret}z\\par}");
    const QSignalSpy changes(&editor_, &NoteEditor::changed);
    QTest::keyClicks(text_, "Hi ");
    const auto note = editor_.note();
    ASSERT_NE(note, std::nullopt);
    EXPECT_NE(charsOf(note->blob).find("Hi a{\\*\\foreign 12}\\v secret\\v0 z\\par"), std::string_view::npos)
        << charsOf(note->blob);
    EXPECT_EQ(note->characters, 11 + 7);
    EXPECT_GE(changes.count(), 3);
}

TEST_F(NoteEditorTest, TypesInFormatsAndBullets) {
    show("");
    QTest::keyClicks(text_, "a");
    QTest::keyClick(text_, Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(text_, Qt::Key_U, Qt::ControlModifier);
    QTest::keyClicks(text_, "b");
    QTest::keyClick(text_, Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(text_, Qt::Key_U, Qt::ControlModifier);
    QTest::keyClick(text_, Qt::Key_I, Qt::ControlModifier);
    QTest::keyClicks(text_, "c");
    QTest::keyClick(text_, Qt::Key_Return);
    QTest::keyClick(text_, Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClicks(text_, "d");
    QTest::keyClick(text_, Qt::Key_Return);
    QTest::keyClick(text_, Qt::Key_Return);
    QTest::keyClicks(text_, "e");
    const exchange::CharacterFormat italic{.italic = true};
    const NoteDocument expected{
        {{false, {TextRun{u"a", {}}, TextRun{u"b", {.bold = true, .underline = true}}, TextRun{u"c", italic}}},
         {true, {TextRun{u"d", italic}}},
         {false, {TextRun{u"e", italic}}}}};
    EXPECT_EQ(charsOf(exchange::writeNote(shown())), charsOf(exchange::writeNote(expected)));
}

TEST_F(NoteEditorTest, ANoteThatWasEmptiedHasNoBytes) {
    show("{\\rtf1 text\\par}");
    QTest::keyClick(text_, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(text_, Qt::Key_Delete);
    EXPECT_EQ(editor_.note(), billing::NoteDraft{});
}

TEST_F(NoteEditorTest, PastesOnlyWhatANoteCanHold) {
    struct Case {
        const char* type;
        const char* data;
        NoteDocument note;
    };
    const Case cases[] = {
        {"text/plain", "a\nb", {{{false, {TextRun{u"a", {}}}}, {false, {TextRun{u"b", {}}}}}}},
        {"text/html",
         "<h1 style='color:red'>a</h1><ol><li><u>b</u></li></ol><table><tr><td>c</td></tr></table>",
         {{{false, {TextRun{u"a", {.bold = true}}}},
           {true, {TextRun{u"b", {.underline = true}}}},
           {false, {TextRun{u"c", {}}}},
           {false, {}}}}},
        {"text/rtf",
         "{\\rtf1{\\*\\hwink1 00}\\i x}",
         {{{false, {exchange::InkDrawing{}, TextRun{u"x", {.italic = true}}}}}}},
    };
    for (const Case& c : cases) {
        show("");
        QMimeData data;
        data.setData(c.type, c.data);
        QMetaObject::invokeMethod(text_, [&] {
            struct Opened : NoteTextEdit {
                using NoteTextEdit::insertFromMimeData;
            };
            (text_->*(&Opened::insertFromMimeData))(&data);
        });
        EXPECT_EQ(shown(), c.note) << c.type << '\n' << charsOf(exchange::writeNote(shown()));
    }
}

} // namespace
} // namespace hourwright::desktop
