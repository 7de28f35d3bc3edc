#include "desktop/note/note_editor.h"

#include "desktop/desktop_fixture.h"
#include "desktop/note/export_note.h"
#include "desktop/note/ink_dialog.h"
#include "desktop/note/ink_pad.h"
#include "desktop/note/note_text_edit.h"
#include "exchange/note_bytes.h"
#include "exchange/note_document.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <fstream>

namespace hourwright::desktop {
namespace {

using exchange::bytesOf;
using exchange::charsOf;
using exchange::NoteDocument;
using exchange::TextRun;

struct FakeSound {
    bool microphone = true;
    std::uint32_t milliseconds = 0;
    std::string played;
};

class FakeRecorder : public platform::VoiceRecorder {
public:
    explicit FakeRecorder(FakeSound& sound) : sound_(sound) {}
    [[nodiscard]] bool available() const override { return sound_.microphone; }
    bool start() override { return sound_.microphone; }
    [[nodiscard]] std::uint32_t milliseconds() const override { return sound_.milliseconds; }
    std::optional<platform::VoiceRecording> stop() override {
        return platform::VoiceRecording{"audio/ogg", sound_.milliseconds, {std::byte{1}, std::byte{2}}};
    }

private:
    FakeSound& sound_;
};

class FakePlayer : public platform::VoicePlayer {
public:
    explicit FakePlayer(FakeSound& sound) : sound_(sound) {}
    bool play(std::string_view format, std::span<const std::byte> data) override {
        sound_.played = std::string(format) + ' ' + std::to_string(data.size());
        return data.size() > 1;
    }
    void stop() override {}
    [[nodiscard]] bool playing() const override { return false; }

private:
    FakeSound& sound_;
};

class NoteEditorTest : public test::DesktopFixture {
protected:
    NoteEditorTest() : editor_(workspace()), text_(editor_.findChild<NoteTextEdit*>()) {
        use();
        editor_.show();
        editor_.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&editor_));
        text_->setFocus();
    }

    void use() { editor_.useVoice({std::make_unique<FakeRecorder>(sound_), std::make_unique<FakePlayer>(sound_)}); }
    [[nodiscard]] QToolButton* button(const QString& name) const {
        for (auto* const found : editor_.findChildren<QToolButton*>())
            if (found->accessibleName() == name)
                return found;
        return nullptr;
    }
    void show(std::string_view rtf) { editor_.setNote(bytesOf(rtf)); }
    [[nodiscard]] NoteDocument shown() const {
        return exchange::readNote(editor_.note().value_or(billing::NoteDraft{}).blob).value_or(NoteDocument{});
    }

    FakeSound sound_;
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

class NoteObjectsTest : public NoteEditorTest {
protected:
    [[nodiscard]] std::vector<exchange::NoteItem> items() const {
        const NoteDocument note = shown();
        return note.paragraphs.empty() ? std::vector<exchange::NoteItem>{} : note.paragraphs[0].items;
    }
    void drawLine(InkDialog& dialog) {
        auto* pad = dialog.findChild<InkPad*>();
        QTest::mousePress(pad, Qt::LeftButton, {}, {20, 20});
        QTest::mouseMove(pad, {60, 30});
        QTest::mouseRelease(pad, Qt::LeftButton, {}, {60, 30});
        dialog.accept();
    }
};

TEST_F(NoteObjectsTest, DrawsIntoTheNoteAndOpensTheDrawingAgain) {
    show("{\\rtf1 a\\par}");
    QTest::keyClick(text_, Qt::Key_End);
    drawLine(*editor_.openInkPad());
    ASSERT_EQ(items().size(), 2U);
    const auto first = std::get<exchange::InkDrawing>(items()[1]);
    EXPECT_EQ(first.strokes.size(), 1U);
    EXPECT_EQ(first.strokes[0].points.size(), 2U);
    EXPECT_TRUE(first.picture);

    QTest::keyClick(text_, Qt::Key_Return, Qt::AltModifier);
    auto* again = editor_.findChildren<InkDialog*>().constLast();
    ASSERT_NE(again, nullptr);
    drawLine(*again);
    ASSERT_EQ(items().size(), 2U);
    EXPECT_EQ(std::get<exchange::InkDrawing>(items()[1]).strokes.size(), 2U);

    QTest::keyClick(text_, Qt::Key_Backspace);
    EXPECT_EQ(items().size(), 1U);
    QTest::keyClick(text_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(std::get<exchange::InkDrawing>(items()[1]).strokes.size(), 2U);
}

TEST_F(NoteObjectsTest, AnEmptyDrawingIsNone) {
    show("");
    editor_.openInkPad()->accept();
    EXPECT_EQ(editor_.note(), std::nullopt);
}

TEST_F(NoteObjectsTest, RecordsAndPlays) {
    show("");
    button("Record Voice")->click();
    sound_.milliseconds = 1500;
    button("Stop Recording")->click();
    const exchange::VoiceClip clip{"audio/ogg", 1500, {std::byte{1}, std::byte{2}}};
    EXPECT_EQ(items(), std::vector<exchange::NoteItem>{clip});
    editor_.openAtCursor();
    EXPECT_EQ(sound_.played, "audio/ogg 2");
    EXPECT_TRUE(messages().shown.empty());
}

TEST_F(NoteObjectsTest, ARecordingEndsWhenTheNoteIsFull) {
    show(std::string(64'000, 'a'));
    button("Record Voice")->click();
    sound_.milliseconds = 2000;
    ASSERT_TRUE(QTest::qWaitFor([&] { return editor_.note().has_value(); }));
    EXPECT_EQ(items().size(), 2U);
}

TEST_F(NoteObjectsTest, SaysThatThereIsNoMicrophone) {
    sound_.microphone = false;
    use();
    const auto* record = button("Record Voice");
    EXPECT_FALSE(record->isEnabled());
    EXPECT_EQ(record->toolTip(), "There is no microphone, so nothing can be recorded.");
    EXPECT_EQ(record->accessibleDescription(), record->toolTip());
}

TEST_F(NoteObjectsTest, TakesOverWhatTheWordProcessorSaved) {
    show("{\\rtf1 old{\\*\\hwvoice1 00 00}\\par}");
    editor_.editInWordProcessor();
    EXPECT_EQ(editor_.note(), std::nullopt);
    ASSERT_EQ(shell().opened.size(), 1U);
    EXPECT_EQ(shell().opened[0].parent_path(), home() / "note");
    EXPECT_FALSE(std::filesystem::exists(home() / "note"));
}

TEST_F(NoteObjectsTest, ExportsWhatIsShown) {
    show("{\\rtf1 old\\par}");
    const auto path = home() / "note.txt";
    ASSERT_TRUE(saveNoteAs(workspace(), bytesOf("{\\rtf1 \\u228?b\\par}"), 4, path));
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "\xE4"
                                                                     "b");
    EXPECT_FALSE(saveNoteAs(workspace(), {}, 1, home() / "missing" / "note.pwi"));
    ASSERT_EQ(messages().ids(), std::vector{resources::StringId::exportNoteFailed});
    EXPECT_EQ(messages().shown[0].icon, platform::Icon::stop);
}

} // namespace
} // namespace hourwright::desktop
