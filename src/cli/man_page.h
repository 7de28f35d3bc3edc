#pragma once

#include <string>
#include <string_view>

namespace hourwright::cli {

/// The manual page in troff: a template with the line "@COMMANDS@" replaced by every command with its arguments and
/// options, "@GLOBAL_OPTIONS@" by the options that all commands take, and "@VERSION@" by the version.
[[nodiscard]] std::string manPage(std::string_view pageTemplate, std::string_view version);

} // namespace hourwright::cli
