#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hourwright::tools {

/// The file that a line of source includes, with its quotes or angle brackets. Nothing for any other line; an include
/// of a macro gives the macro's name.
[[nodiscard]] std::optional<std::string> includedBy(std::string_view line);

/// Why a file (its path below src/) may not have this include; nothing when it may.
[[nodiscard]] std::optional<std::string> objection(std::string_view file, std::string_view include);

} // namespace hourwright::tools
