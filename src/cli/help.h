#pragma once

#include "cli/arguments.h"

#include <string>
#include <string_view>

namespace hourwright::cli {

/// "hwctl entry edit ID [FIELDS]".
[[nodiscard]] std::string usageOf(const CommandSpec& command);

/// What --help prints for the command, the topic or the whole program, whichever the line names.
[[nodiscard]] std::string helpText(const CommandLine& line);

/// What is wrong with a line and how it should look: two lines for standard error.
[[nodiscard]] std::string usageError(const CommandLine& line);

/// "--custom FROM TO", "--day [DATE]".
[[nodiscard]] std::string optionUsage(const OptionSpec& option);

/// What stands behind an option in help, its choices included.
[[nodiscard]] std::string optionHelp(std::string_view help, std::string_view choices);

} // namespace hourwright::cli
