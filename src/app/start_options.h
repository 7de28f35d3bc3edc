#pragma once

#include "app/period_kind.h"
#include "platform/file_time.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::app {

/// What the window program is told when it is started, or by a later start while it runs.
struct StartOptions {
    std::string home;   ///< folder that holds everything; empty: the usual places
    std::string locale; ///< empty: the environment's
    bool help = false;
    bool version = false;
    bool newEntry = false;
    std::optional<PeriodKind> view;
    std::optional<platform::SystemTime> date; ///< 00:00, with its day of week
    std::filesystem::path file;
    std::string error; ///< why the words mean nothing, for people; empty when they do

    friend bool operator==(const StartOptions&, const StartOptions&) = default;
};

/// Reads the words of a command line (UTF-8, without the program's name). The toolkit's own options are passed over.
[[nodiscard]] StartOptions parseStartOptions(std::span<const std::string> words);

/// What the running copy has to know of the options, as a command line; a relative file is taken from the folder given.
/// Empty when there is nothing but to come forward.
[[nodiscard]] std::u16string handOverLine(const StartOptions& options, const std::filesystem::path& workingFolder);

/// Reads a command line that was handed over.
[[nodiscard]] StartOptions parseHandOverLine(std::u16string_view line);

/// The words of a command line: separated by blanks; quotation marks hold together what stands between them, and a
/// backslash takes the next character as it is.
[[nodiscard]] std::vector<std::string> splitLine(std::u16string_view line);
[[nodiscard]] std::u16string joinLine(std::span<const std::string> words);

/// The text of `--help`.
[[nodiscard]] std::string startOptionsHelp();

} // namespace hourwright::app
