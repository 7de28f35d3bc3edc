#include "cli/note_argument.h"

#include "billing/typed_text.h"
#include "exchange/note_document.h"
#include "exchange/note_size.h"
#include "platform/utf.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace hourwright::cli {

namespace {

constexpr std::string_view rtfSignature = "{\\rtf";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// More than any note that is accepted takes, so that a huge file is not read to its end.
constexpr std::streamsize readLimit = 1 << 20;

std::optional<std::string> readFile(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(readLimit), '\0');
    file.read(bytes.data(), readLimit);
    if (file.bad())
        return std::nullopt;
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

// A document that cannot be read as a note counts as large as its file.
billing::NoteDraft noteOfRtf(std::string_view rtf) {
    const auto bytes = std::as_bytes(std::span(rtf));
    const auto note = exchange::readNote(bytes);
    return {.blob = {bytes.begin(), bytes.end()}, .characters = note ? exchange::noteCharacters(*note) : rtf.size()};
}

} // namespace

billing::NoteDraft noteOfText(std::u16string_view text) {
    const exchange::NoteDocument note = exchange::fromPlainText(text);
    if (note.paragraphs.empty())
        return {};
    return {.blob = exchange::writeNote(note), .characters = exchange::noteCharacters(note)};
}

std::optional<billing::NoteDraft> noteOfFile(const std::filesystem::path& path) {
    const auto bytes = readFile(path);
    if (!bytes)
        return std::nullopt;
    if (std::cmp_equal(bytes->size(), readLimit)) // there may be more, which must not be cut off unnoticed
        return billing::NoteDraft{.blob = {}, .characters = billing::noteTooLargeFrom};
    std::string_view text = *bytes;
    if (text.starts_with(rtfSignature))
        return noteOfRtf(text);
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    return noteOfText(platform::toUtf16(text));
}

} // namespace hourwright::cli
