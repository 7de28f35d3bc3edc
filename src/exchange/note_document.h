#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace hourwright::exchange {

/// How the characters of a run look. Hidden text is kept but is no part of the note's plain text.
struct CharacterFormat {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool hidden = false;

    friend bool operator==(const CharacterFormat&, const CharacterFormat&) = default;
};

/// Characters of one format. LF is a line break within the paragraph; neither CR nor NUL occurs.
struct TextRun {
    std::u16string text;
    CharacterFormat format;

    friend bool operator==(const TextRun&, const TextRun&) = default;
};

/// Where the pen was, in hundredths of a millimetre to the right and down from the drawing's corner. Pressure is 0 to
/// 65535 (full).
struct InkPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::uint16_t pressure = 0;

    friend bool operator==(const InkPoint&, const InkPoint&) = default;
};

/// One stroke of the pen: colour as 0xAARRGGBB, width of the tip in hundredths of a millimetre.
struct InkStroke {
    std::uint32_t colour = 0xFF000000;
    std::uint32_t width = 0;
    std::vector<InkPoint> points;

    friend bool operator==(const InkStroke&, const InkStroke&) = default;
};

/// The picture of a drawing that programs without ink show: a PNG file, its size in pixels and on paper in twips
/// (1/1440 inch).
struct InkPicture {
    std::vector<std::byte> png;
    std::int32_t pixelWidth = 0;
    std::int32_t pixelHeight = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    friend bool operator==(const InkPicture&, const InkPicture&) = default;
};

/// A drawing that stands in the text like a character.
struct InkDrawing {
    std::vector<InkStroke> strokes;
    std::optional<InkPicture> picture;

    friend bool operator==(const InkDrawing&, const InkDrawing&) = default;
};

/// A recording that stands in the text like a character. The format is a media type, for example "audio/wav".
struct VoiceClip {
    std::string format;
    std::uint32_t milliseconds = 0;
    std::vector<std::byte> data;

    friend bool operator==(const VoiceClip&, const VoiceClip&) = default;
};

/// A part of a document of other programs that is kept as it stands: one RTF group with its braces.
struct ForeignGroup {
    std::string rtf;

    friend bool operator==(const ForeignGroup&, const ForeignGroup&) = default;
};

using NoteItem = std::variant<TextRun, InkDrawing, VoiceClip, ForeignGroup>;

/// One paragraph. Neighbouring runs differ in format and no run is empty.
struct NoteParagraph {
    bool bullet = false;
    std::vector<NoteItem> items;

    friend bool operator==(const NoteParagraph&, const NoteParagraph&) = default;
};

/// A note: formatted text with drawings and recordings. The code page is the one that foreign groups are written in;
/// the note's own text does not depend on it.
struct NoteDocument {
    std::vector<NoteParagraph> paragraphs;
    std::uint16_t codePage = 1252;

    friend bool operator==(const NoteDocument&, const NoteDocument&) = default;
};

/// The note with a plain text up to its first NUL: CR LF, LF and CR each end a paragraph. No paragraph when empty.
[[nodiscard]] NoteDocument fromPlainText(std::u16string_view text);

/// Reads a note's bytes: RTF, however damaged, or plain text (see docs/note-format.md). Nothing when they are of
/// neither kind; such a note cannot be edited and is left as it is.
[[nodiscard]] std::optional<NoteDocument> readNote(std::span<const std::byte> blob);

/// The bytes of a note, always the same for the same document. Reading them gives the document back.
[[nodiscard]] std::vector<std::byte> writeNote(const NoteDocument& note);

} // namespace hourwright::exchange
