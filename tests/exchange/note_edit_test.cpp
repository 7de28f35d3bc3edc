#include "exchange/note_edit.h"

#include "billing/typed_text.h"
#include "exchange/memory_files.h"
#include "exchange/note_bytes.h"
#include "exchange/note_document.h"
#include "exchange/note_merge.h"
#include "exchange/note_size.h"
#include "platform/posix/posix_files.h"
#include "support/recording_message_box.h"
#include "support/temporary_directory.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace hourwright::exchange {
namespace {

namespace fs = std::filesystem;
using platform::Answer;
using resources::StringId;

// A word processor that does something with the file that it is given.
class Editor : public platform::Shell {
public:
    bool open(const fs::path& file) override {
        opened = file;
        std::ifstream in(file, std::ios::binary);
        found.assign(std::istreambuf_iterator<char>(in), {});
        permissions = fs::status(file).permissions();
        if (edits)
            edits(file);
        return succeeds;
    }
    bool openPage(const fs::path&, const std::string&) override { return false; }

    std::function<void(const fs::path&)> edits;
    fs::path opened;
    std::string found;
    fs::perms permissions{};
    bool succeeds = true;
};

std::function<void(const fs::path&)> saves(std::string text) {
    return [text = std::move(text)](const fs::path& file) { std::ofstream(file, std::ios::binary) << text; };
}

class NoteEditTest : public testing::Test {
protected:
    std::optional<std::vector<std::byte>> edit(std::string_view blob) {
        return editNote(bytesOf(blob), {files_, editor_, messages_, folder_.path()});
    }
    [[nodiscard]] bool folderIsEmpty() const { return fs::is_empty(folder_.path()); }

    test::TemporaryDirectory folder_;
    platform::PosixFiles files_;
    Editor editor_;
    test::RecordingMessageBox messages_;
};

TEST_F(NoteEditTest, NamesByVersion) {
    EXPECT_EQ(noteEditPath("/a", 5, 0x0F2A), "/a/trn0F2A.rtf");
    EXPECT_EQ(noteEditPath("/a", 6, 0), "/a/trn0000.rtf");
    EXPECT_EQ(noteEditPath("/a", 4, 0xFFFF), "/a/trnFFFF.psw");
}

TEST_F(NoteEditTest, GivesWhatWasSaved) {
    editor_.edits = saves("{\\rtf1 new}");
    const auto edited = edit("old");
    ASSERT_TRUE(edited);
    EXPECT_EQ(charsOf(*edited), "{\\rtf1 new}");
    EXPECT_EQ(editor_.found, charsOf(writeNote(fromPlainText(u"old"))));
    EXPECT_EQ(editor_.permissions, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(editor_.opened.parent_path(), folder_.path());
    ASSERT_EQ(messages_.ids(), std::vector{StringId::editNotePrompt});
    EXPECT_EQ(messages_.shown[0].buttons, platform::Buttons::okCancel);
    EXPECT_TRUE(folderIsEmpty());
}

TEST_F(NoteEditTest, CancelKeepsTheNote) {
    editor_.edits = saves("{\\rtf1 new}");
    messages_.script = {Answer::cancel};
    EXPECT_FALSE(edit("old"));
    EXPECT_TRUE(folderIsEmpty());
}

TEST_F(NoteEditTest, WithoutAWordProcessorNothingIsAsked) {
    editor_.succeeds = false;
    EXPECT_FALSE(edit("old"));
    EXPECT_EQ(messages_.ids(), std::vector{StringId::noteNotOpened});
    EXPECT_TRUE(folderIsEmpty());
}

TEST_F(NoteEditTest, WhatCannotBeReadBackIsReported) {
    const std::function<void(const fs::path&)> faults[] = {[](const fs::path& file) { fs::remove(file); }, saves(""),
                                                           saves("PK\x03\x04\xFF\xFE"),
                                                           [](const fs::path& file) {
                                                               fs::remove(file);
                                                               fs::create_directory(file);
                                                           }};
    for (const auto& fault : faults) {
        messages_.shown.clear();
        editor_.edits = fault;
        EXPECT_FALSE(edit("old"));
        EXPECT_EQ(messages_.ids(), (std::vector{StringId::editNotePrompt, StringId::noteNotReadBack}));
        EXPECT_TRUE(folderIsEmpty());
    }
}

TEST_F(NoteEditTest, AFileThatCannotBeWrittenIsNotOpened) {
    test::MemoryFiles full;
    full.room = 10;
    EXPECT_FALSE(editNote(bytesOf("old"), {full, editor_, messages_, folder_.path()}));
    EXPECT_EQ(messages_.ids(), std::vector{StringId::error});
    EXPECT_TRUE(editor_.opened.empty());
}

TEST(NoteMerge, GivesBackWhatWordProcessorsDrop) {
    const InkDrawing ink{.strokes = {{.colour = 1, .width = 2, .points = {}}},
                         .picture = InkPicture{{}, 90, 60, 900, 600}};
    const InkDrawing unseen{.strokes = ink.strokes, .picture = std::nullopt};
    const VoiceClip voice{"audio/ogg", 5, {std::byte{1}}};
    const TextRun text{u"a", {}};
    const auto picture = [](std::string_view size) {
        return ForeignGroup{"{\\*\\shppict{\\pict" + std::string(size) + "\\pngblip 00}}"};
    };
    const NoteDocument before{{{false, {ink, voice}}, {false, {unseen}}}};
    struct Case {
        const char* name;
        NoteDocument edited;
        NoteDocument merged;
    };
    const Case cases[] = {
        {"pixels",
         {{{false, {picture("\\picw90\\pich60\\picwgoal7"), ForeignGroup{"{\\nonshppict{\\pict 1}}"}, text}}}},
         {{{false, {ink, text, voice, unseen}}}}},
        {"size on paper",
         {{{false, {picture("\\picw3\\pich2\\picwgoal900\\pichgoal600")}}}},
         {{{false, {ink, voice, unseen}}}}},
        {"another picture",
         {{{false, {picture("\\picw91\\pich60")}}, {false, {}}}},
         {{{false, {picture("\\picw91\\pich60")}}, {false, {voice, unseen}}}}},
        {"everything deleted", {}, {{{false, {voice, unseen}}}}},
        {"nothing lost", before, before},
    };
    for (const Case& c : cases)
        EXPECT_EQ(withLostObjects(c.edited, before), c.merged) << c.name;

    const NoteDocument twice{{{false, {voice, voice, ink, ink}}}};
    EXPECT_EQ(withLostObjects({{{false, {voice, ink, picture("\\picw90\\pich60")}}}}, twice),
              (NoteDocument{{{false, {voice, ink, ink, voice}}}}));
    const ForeignGroup spare{"{\\nonshppict{\\pict 1}}"};
    EXPECT_EQ(withLostObjects({{{false, {text, spare, TextRun{u"b", {}}, spare, text}}}}, {}),
              (NoteDocument{{{false, {TextRun{u"aba", {}}}}}}));
}

TEST(NoteSize, CountsBytesAndNotTheirDigits) {
    const NoteDocument note{{{false, {TextRun{u"abc", {}}}},
                             {true, {VoiceClip{"audio/ogg", 5, std::vector<std::byte>(100)}}},
                             {false, {InkDrawing{{}, InkPicture{std::vector<std::byte>(5000), 1, 1, 1, 1}}}},
                             {false, {ForeignGroup{"{\\*\\x 0123}"}}}}};
    EXPECT_EQ(noteCharacters(note), 3U + 100U + 1U + 5U + 3U);
    EXPECT_EQ(noteCharacters({}), 0U);
}

TEST(NoteSize, IsTheSameForAPlainTextAndTheNoteMadeOfIt) {
    for (const auto& [text, size] :
         std::initializer_list<std::pair<std::u16string, std::size_t>>{{u"", 0},
                                                                       {u"abc", 3},
                                                                       {u"a\nb", 3},
                                                                       {u"a\r\nb", 3},
                                                                       {u"\r\n\r\n", 2},
                                                                       {u"a\r\rb", 4},
                                                                       {u"\U0001F600\t", 3},
                                                                       {u"a\r\n", 2},
                                                                       {std::u16string(u"ab\0cd", 5), 2}}) {
        EXPECT_EQ(billing::noteCharacters(text), size);
        EXPECT_EQ(noteCharacters(fromPlainText(text)), size);
    }
}

} // namespace
} // namespace hourwright::exchange
