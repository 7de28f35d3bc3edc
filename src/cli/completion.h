#pragma once

#include <string>

namespace hourwright::cli {

/// Completion scripts for the shells, made from the command table.
[[nodiscard]] std::string bashCompletion();
[[nodiscard]] std::string zshCompletion();
[[nodiscard]] std::string fishCompletion();

} // namespace hourwright::cli
