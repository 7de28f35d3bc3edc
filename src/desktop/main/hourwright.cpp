#include "desktop/application.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/private_file.h"
#include "platform/posix/unix_instance_channel.h"

#include <cstdio>
#include <filesystem>

namespace {

using namespace hourwright;

int printAndEnd(const std::string& text) {
    return std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
}

int refuse(const std::string& reason) {
    std::fputs(("hourwright: " + reason + "\nTry 'hourwright --help'.\n").c_str(), stderr);
    return 1;
}

int start(int argc, char** argv, const app::StartOptions& options) {
    const auto directories = platform::userDirectories(options.home, platform::processEnvironment);
    static_cast<void>(platform::makeDirectories(directories)); // a failure shows when the stores are opened
    const auto channel = platform::makeInstanceChannel(directories.runtime);
    std::error_code noWorkingFolder;
    const std::u16string line = app::handOverLine(options, std::filesystem::current_path(noWorkingFolder));
    const std::string token = platform::processEnvironment("XDG_ACTIVATION_TOKEN").value_or("");
    desktop::Application application(argc, argv, options, directories);
    return app::startUp(*channel, {.commandLine = line, .activationToken = token}, application);
}

} // namespace

int main(int argc, char** argv) {
    platform::keepNewFilesPrivate();
    const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    const auto options = app::parseStartOptions(words);
    if (!options.error.empty())
        return refuse(options.error);
    if (options.help)
        return printAndEnd(app::startOptionsHelp());
    if (options.version)
        return printAndEnd("hourwright " HOURWRIGHT_VERSION "\n");
    if (!options.locale.empty() && !platform::makeIcuLocale(options.locale))
        return refuse("unknown locale '" + options.locale + "'");
    return start(argc, argv, options);
}
