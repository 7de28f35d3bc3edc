#pragma once

#include "exchange/note_document.h"

namespace hourwright::exchange {

/// A note that came back from a word processor, with what such programs drop given back: a picture that was made of a
/// drawing becomes the drawing again, and recordings that are missing stand at the end. A drawing whose picture was
/// deleted stays away.
[[nodiscard]] NoteDocument withLostObjects(NoteDocument edited, const NoteDocument& before);

} // namespace hourwright::exchange
