// Reads any bytes as the note that a word processor gives back after it has edited one of ours. Nothing that such
// programs cannot show may get lost, nothing of the text may change, and what is put together must survive being
// written and read.

#include "exchange/note_document.h"
#include "exchange/note_merge.h"
#include "exchange/note_text_converter.h"
#include "fuzz/require.h"
#include "fuzz/targets.h"

#include <algorithm>

namespace hourwright::fuzz {

using namespace exchange;

namespace {

VoiceClip clip(std::uint32_t milliseconds) {
    return {.format = "audio/ogg", .milliseconds = milliseconds, .data = std::vector<std::byte>(9, std::byte{0x5A})};
}

InkDrawing drawing(std::int32_t size, bool pictured) {
    InkDrawing ink{.strokes = {{.width = 50, .points = {{0, 0, 100}, {size, -size, 65535}}}}, .picture = {}};
    if (pictured)
        ink.picture = InkPicture{std::vector<std::byte>(5, std::byte{0x89}), size, size + 1, size * 15, size * 15 + 15};
    return ink;
}

// What went to the word processor: text, drawings of two sizes with and without picture, recordings, something of a
// later version.
const NoteDocument& before() {
    static const NoteDocument note{
        .paragraphs = {{false, {TextRun{u"Agenda", {.bold = true}}, drawing(6, true), clip(1000)}},
                       {true, {TextRun{u"one", {}}, drawing(20, false), drawing(60, true)}},
                       {false, {ForeignGroup{"{\\*\\hwvoice9 00}"}, clip(2500), clip(2500)}}}};
    return note;
}

std::size_t countOf(const NoteDocument& note, const NoteItem& item) {
    std::size_t count = 0;
    for (const NoteParagraph& paragraph : note.paragraphs)
        count += static_cast<std::size_t>(std::ranges::count(paragraph.items, item));
    return count;
}

// Recordings and drawings without a picture are there as often as before.
void requireNothingLost(const NoteDocument& merged) {
    for (const NoteItem& item : {NoteItem(clip(1000)), NoteItem(clip(2500)), NoteItem(drawing(20, false)),
                                 NoteItem(ForeignGroup{"{\\*\\hwvoice9 00}"})})
        require(countOf(merged, item) >= countOf(before(), item));
}

bool hasText(const NoteDocument& note) {
    return std::ranges::any_of(note.paragraphs, [](const NoteParagraph& paragraph) {
        return std::ranges::any_of(paragraph.items, [](const NoteItem& item) {
            const auto* run = std::get_if<TextRun>(&item);
            return run != nullptr && !run->format.hidden;
        });
    });
}

} // namespace

void foreignNote(Bytes bytes) {
    const auto edited = readNote(bytes);
    if (!edited)
        return;
    const NoteDocument merged = withLostObjects(*edited, before());
    requireNothingLost(merged);
    const auto written = writeNote(merged);
    require(readNote(written) == merged);
    require(withLostObjects(merged, before()) == merged);
    static NoteTextConverter converter;
    const std::u16string text(converter.convert(bytes));
    require(!hasText(*edited) || converter.convert(written) == text);
}

} // namespace hourwright::fuzz
