#include "exchange/note_size.h"

#include "exchange/note_objects.h"

namespace hourwright::exchange {

namespace {

std::size_t sizeOf(const TextRun& run) {
    return run.text.size();
}

std::size_t sizeOf(const VoiceClip& clip) {
    return clip.data.size();
}

std::size_t sizeOf(const InkDrawing& drawing) {
    return packedInkSize(drawing);
}

// Most of a large foreign group is a picture in hexadecimal digits.
std::size_t sizeOf(const ForeignGroup& group) {
    return group.rtf.size() / 2;
}

} // namespace

std::size_t noteCharacters(const NoteDocument& note) {
    std::size_t size = note.paragraphs.empty() ? 0 : note.paragraphs.size() - 1;
    for (const NoteParagraph& paragraph : note.paragraphs)
        for (const NoteItem& item : paragraph.items)
            size += std::visit([](const auto& part) { return sizeOf(part); }, item);
    return size;
}

} // namespace hourwright::exchange
