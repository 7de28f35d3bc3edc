#pragma once

#include "exchange/note_document.h"

#include <string>

namespace hourwright::exchange {

/// The note as RTF. Only ASCII, except within foreign groups.
[[nodiscard]] std::string writeRtf(const NoteDocument& note);

} // namespace hourwright::exchange
