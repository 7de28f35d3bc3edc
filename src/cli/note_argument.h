#pragma once

#include "billing/entry_draft.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace hourwright::cli {

/// The note with a plain text, up to its first NUL; no note for an empty text.
[[nodiscard]] billing::NoteDraft noteOfText(std::u16string_view text);

/// The note in a file: an RTF document as it is, anything else as text in UTF-8. A file of a mebibyte and more is a
/// note too large to be stored. Nothing when the file cannot be read.
[[nodiscard]] std::optional<billing::NoteDraft> noteOfFile(const std::filesystem::path& path);

} // namespace hourwright::cli
