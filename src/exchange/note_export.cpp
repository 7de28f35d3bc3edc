#include "exchange/note_export.h"

#include "exchange/note_document.h"
#include "exchange/note_text_converter.h"

#include <string_view>

namespace hourwright::exchange {

namespace {

std::string asString(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string littleEndian(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
}

} // namespace

NoteFormat noteFormat(unsigned index) {
    const bool known = index >= static_cast<unsigned>(NoteFormat::pocketWord) &&
                       index <= static_cast<unsigned>(NoteFormat::unicodeText);
    return known ? static_cast<NoteFormat>(index) : NoteFormat::pocketNotes;
}

std::string noteFileBytes(std::span<const std::byte> blob, NoteFormat format, const platform::CodePage& codePage) {
    NoteTextConverter converter;
    switch (format) {
    case NoteFormat::text: return codePage.convert(converter.convert(blob));
    case NoteFormat::unicodeText: return littleEndian(converter.convert(blob));
    case NoteFormat::pocketWord:
    case NoteFormat::pocketNotes:
    case NoteFormat::richText: break;
    }
    const auto note = readNote(blob);
    if (!note && format != NoteFormat::richText)
        return asString(blob);
    return asString(writeNote(note.value_or(NoteDocument{})));
}

ExportResult exportNote(std::span<const std::byte> blob, NoteFormat format, const ExportTarget& target) {
    const auto created = target.files.create(target.path);
    if (!created.writer)
        return {.status = ExportStatus::notCreated, .error = created.error, .records = 0};
    const bool written = created.writer->write(noteFileBytes(blob, format, target.systemLocale.ansiCodePage()));
    const bool complete = created.writer->close() && written;
    static_cast<void>(complete); // a note that did not fit is no failure of the command
    return {};
}

} // namespace hourwright::exchange
