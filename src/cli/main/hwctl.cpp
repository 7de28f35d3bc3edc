#include "cli/run.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_io.h"
#include "platform/posix/private_file.h"
#include "platform/posix/system_clock.h"
#include "platform/posix/terminal_message_box.h"

#include <vector>

constexpr int standardError = 2;

int main(int argc, char** argv) {
    using namespace hourwright;
    platform::keepNewFilesPrivate();
    const std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    platform::PosixFiles files;
    const platform::SystemClock clock;
    cli::Environment environment{
        .files = files,
        .clock = clock,
        .variable = platform::processEnvironment,
        .makeMessageBox =
            [](bool yes) {
                return std::make_unique<platform::TerminalMessageBox>(
                    platform::TerminalOptions{.yes = yes, .interactive = platform::hasTerminal()});
            },
        .writeError = [](std::string_view text) { static_cast<void>(platform::writeAll(standardError, text)); },
    };
    return cli::run(words, environment);
}
