#include "desktop/note/ink_dialog.h"
#include "desktop/note/note_editor.h"
#include "desktop/screens/screens.h"
#include "exchange/note_document.h"

#include <cmath>

namespace hourwright::desktop {

namespace {

using exchange::InkDrawing;
using exchange::InkStroke;
using exchange::NoteDocument;
using exchange::TextRun;

InkStroke wave(std::uint32_t colour, std::uint32_t width, int top) {
    InkStroke stroke{.colour = colour, .width = width, .points = {}};
    for (int i = 0; i <= 60; ++i)
        stroke.points.push_back({.x = 300 + i * 90,
                                 .y = top + static_cast<int>(400 * std::sin(i * 0.35)),
                                 .pressure = static_cast<std::uint16_t>(20000 + i * 700)});
    return stroke;
}

InkDrawing sketch() {
    const InkStroke frame{
        .colour = 0xFF1A1A1A,
        .width = 40,
        .points = {{200, 200, 65535}, {6000, 200, 65535}, {6000, 2600, 65535}, {200, 2600, 65535}, {200, 200, 65535}}};
    return {.strokes = {frame, wave(0xFF1F4FA8, 60, 1000), wave(0xFFC62828, 140, 1900)}, .picture = std::nullopt};
}

NoteDocument note() {
    const exchange::CharacterFormat bold{.bold = true};
    return {{{false, {TextRun{u"Kick-off with the team", bold}}},
             {true, {TextRun{u"agreed on the three milestones", {}}}},
             {true, {TextRun{u"rates stay ", {}}, TextRun{u"until March", {.underline = true}}}},
             {true, {TextRun{u"sketch of the new hall:", {.italic = true}}}},
             {false, {sketch()}},
             {false,
              {TextRun{u"What was said about the budget: ", {}},
               exchange::VoiceClip{"audio/ogg", 42'000, {std::byte{1}}}, TextRun{u" to be written down", {}}}}}};
}

} // namespace

void addNoteScreens(std::vector<Screen>& screens) {
    screens.push_back({"note", [](MainWindow& window) {
                           auto* editor = new NoteEditor(window.workspace());
                           editor->setNote(exchange::writeNote(note()));
                           editor->resize(520, 420);
                           return editor;
                       }});
    screens.push_back(
        {"note-ink-pad", [](MainWindow& window) { return new InkDialog(window.workspace(), sketch(), &window); }});
}

} // namespace hourwright::desktop
