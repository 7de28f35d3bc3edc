#pragma once

#include "exchange/note_document.h"

#include <cstddef>

namespace hourwright::exchange {

/// How large a note is, as it counts against the limit of a time entry: a character for each UTF-16 unit of its text,
/// for each paragraph but the last, and for each byte of recordings, ink and foreign parts. Hexadecimal digits count
/// as the bytes that they stand for. The pictures made of drawings do not count.
[[nodiscard]] std::size_t noteCharacters(const NoteDocument& note);

} // namespace hourwright::exchange
