#include "cli/run.h"

#include "cli/arguments.h"
#include "cli/help.h"
#include "cli/joined.h"
#include "cli/output.h"
#include "cli/session.h"
#include "platform/utf.h"

#include <algorithm>
#include <string>

namespace hourwright::cli {

namespace {

constexpr std::string_view programVersion = HOURWRIGHT_VERSION;

// Malformed bytes and encoded surrogates do not survive the way through UTF-16.
bool isUtf8(std::string_view text) {
    return platform::printableUtf8(platform::toUtf16(text)) == text;
}

CommandLine parse(std::span<const std::string_view> words) {
    if (std::ranges::all_of(words, isUtf8))
        return parseCommandLine(words);
    CommandLine line;
    line.error = "an argument is not valid UTF-8";
    return line;
}

ExitCode runCommand(const CommandLine& line, Environment& environment, Output& out) {
    if (line.arguments.has(option::help)) {
        out.write(helpText(line));
        return ExitCode::done;
    }
    if (line.arguments.has(option::version)) {
        out.writeLine(joined({"hwctl ", programVersion}));
        return ExitCode::done;
    }
    Session session(line, environment, out);
    const ExitCode prepared = session.prepare();
    if (prepared != ExitCode::done)
        return prepared;
    const ExitCode ended = line.command->run(session, line.arguments);
    session.announceChanges(); // a command that failed may have changed something before
    return ended;
}

// Standard output that could not be written is a failure, a silent one when the reader has just gone away.
ExitCode finish(Output& out, Environment& environment) {
    if (out.finish())
        return ExitCode::done;
    if (out.error() != platform::PlatformError::brokenPipe)
        environment.makeMessageBox(false)->showError(platform::number(out.error()));
    return ExitCode::refused;
}

} // namespace

int run(std::span<const std::string_view> words, Environment& environment) {
    const CommandLine line = parse(words);
    if (!line.error.empty()) {
        environment.writeError(usageError(line));
        return static_cast<int>(ExitCode::usage);
    }
    const auto file = environment.files.create("-");
    if (!file.writer)
        return static_cast<int>(ExitCode::refused);
    Output out(*file.writer);
    const ExitCode ended = runCommand(line, environment, out);
    const ExitCode written = finish(out, environment);
    return static_cast<int>(ended == ExitCode::done ? written : ended);
}

} // namespace hourwright::cli
