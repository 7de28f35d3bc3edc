#pragma once

#include "exchange/export_target.h"
#include "platform/code_page.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace hourwright::exchange {

/// The file types that a note can be saved as, with their places in the save dialog's list. The first two hold the same
/// bytes: the note document.
enum class NoteFormat : std::uint8_t { pocketWord = 1, pocketNotes = 2, richText = 3, text = 4, unicodeText = 5 };

/// The format at a place of the list; the note document for any other number.
[[nodiscard]] NoteFormat noteFormat(unsigned index);

/// A note's bytes in a format: `text` in the code page, what that lacks as its default character, `unicodeText` as
/// UTF-16LE without a mark. No note is an empty document or text. A blob of unknown format is itself as a note document
/// and empty in the other formats.
[[nodiscard]] std::string noteFileBytes(std::span<const std::byte> blob, NoteFormat format,
                                        const platform::CodePage& codePage);

/// Saves a note as a file. It has not failed when the file was created: write errors do not count.
[[nodiscard]] ExportResult exportNote(std::span<const std::byte> blob, NoteFormat format, const ExportTarget& target);

} // namespace hourwright::exchange
