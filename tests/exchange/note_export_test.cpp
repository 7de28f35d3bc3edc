#include "exchange/note_export.h"

#include "exchange/memory_files.h"
#include "exchange/note_bytes.h"
#include "exchange/note_document.h"
#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view emptyDocument = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0 Tahoma;}}\\pard\\fs20 }";
constexpr std::string_view ink = "{\\rtf1{\\*\\hwink1 00}\\par}";
constexpr std::string_view inkDocument =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0 Tahoma;}}\\pard\\fs20 {\\*\\hwink1\r\n00}\\par\r\n}";
constexpr std::string_view words = "{\\rtf1 a\\par\\u8364?\\u28450?\\par}";
constexpr std::string_view wordsDocument =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0 Tahoma;}}\\pard\\fs20 a\\par\r\n\\u8364?\\u28450?\\par\r\n}";

TEST(NoteExport, Formats) {
    struct Case {
        NoteFormat format;
        std::string_view blob;
        std::string_view bytes;
    };
    using enum NoteFormat;
    const Case cases[] = {
        {pocketWord, words, wordsDocument},
        {pocketNotes, words, wordsDocument},
        {richText, words, wordsDocument},
        {NoteFormat::text, words, "a\r\n\x80?"},
        {unicodeText, words, "a\0\r\0\n\0\xAC\x20\x22\x6F"sv},
        {pocketWord, ink, inkDocument},
        {richText, ink, inkDocument},
        {NoteFormat::text, ink, ""},
        {unicodeText, ink, ""},
        {pocketWord, "", emptyDocument},
        {pocketNotes, "", emptyDocument},
        {richText, "", emptyDocument},
        {NoteFormat::text, "", ""},
        {unicodeText, "", ""},
        {pocketWord, "\x01\x02", "\x01\x02"},
        {richText, "\x01\x02", emptyDocument},
        {NoteFormat::text, "\x01\x02", ""},
    };
    const auto system = platform::makeIcuLocale("en_US");
    for (const Case& c : cases)
        EXPECT_EQ(noteFileBytes(bytesOf(c.blob), c.format, system->ansiCodePage()), c.bytes)
            << static_cast<int>(c.format) << " of " << c.blob;
}

TEST(NoteExport, PlacesInTheList) {
    const NoteFormat formats[] = {NoteFormat::pocketNotes, NoteFormat::pocketWord, NoteFormat::pocketNotes,
                                  NoteFormat::richText,    NoteFormat::text,       NoteFormat::unicodeText,
                                  NoteFormat::pocketNotes};
    for (unsigned i = 0; i < std::size(formats); ++i)
        EXPECT_EQ(noteFormat(i), formats[i]) << i;
}

TEST(NoteExport, OnlyCreatingTheFileCanFail) {
    test::MemoryFiles files;
    const auto system = platform::makeIcuLocale("en_US");
    const auto save = [&] { return exportNote(bytesOf(words), NoteFormat::text, {files, "note.txt", *system}); };
    EXPECT_EQ(save(), ExportResult{});
    EXPECT_EQ(files.content, "a\r\n\x80?");
    EXPECT_TRUE(files.closed);
    files.room = 1;
    EXPECT_EQ(save(), ExportResult{});
    files.denied = true;
    EXPECT_EQ(save(), (ExportResult{ExportStatus::notCreated, platform::PlatformError::accessDenied, 0}));
}

} // namespace
} // namespace hourwright::exchange
