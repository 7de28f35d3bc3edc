#include "platform/posix/user_directories.h"

#include "platform/posix/posix_error.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <pwd.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace hourwright::platform {

namespace {

namespace fs = std::filesystem;

constexpr const char* programFolder = "hourwright";
constexpr const char* runtimeFolder = "runtime";

// A variable that names a folder; by convention a relative one counts as not set.
fs::path folder(const Environment& environment, const char* name) {
    const fs::path path = environment(name).value_or("");
    return path.is_absolute() ? path : fs::path();
}

fs::path homeFromAccount() {
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr)
        return {};
    const fs::path home = found->pw_dir;
    return home.is_absolute() ? home : fs::path();
}

fs::path homeFolder(const Environment& environment) {
    const fs::path home = folder(environment, "HOME");
    return home.empty() ? homeFromAccount() : home;
}

// A base folder of the XDG conventions: the variable's, else the default below the home folder.
fs::path baseFolder(const Environment& environment, const char* variable, const char* belowHome) {
    const fs::path set = folder(environment, variable);
    if (!set.empty())
        return set;
    const fs::path home = homeFolder(environment);
    return home.empty() ? fs::path() : home / belowHome;
}

fs::path programFolderIn(const fs::path& base) {
    return base.empty() ? base : base / programFolder;
}

// A folder of the user's own that nobody else can enter.
bool isPrivate(const fs::path& path) {
    struct stat status {};
    return !path.empty() && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

fs::path runtimeFor(const Environment& environment, const fs::path& data) {
    const fs::path set = folder(environment, "XDG_RUNTIME_DIR");
    if (isPrivate(set))
        return set / programFolder;
    return data.empty() ? data : data / runtimeFolder;
}

Directories directoriesIn(const fs::path& home) {
    std::error_code noWorkingFolder;
    fs::path path = fs::absolute(home, noWorkingFolder).lexically_normal();
    if (!path.has_filename())
        path = path.parent_path();
    return {.data = path, .config = path, .state = path, .runtime = path / runtimeFolder, .ownHome = true};
}

PlatformError makeOne(const fs::path& path) {
    if (::mkdir(path.c_str(), S_IRWXU) == 0)
        return PlatformError::none;
    const int reason = errno;
    struct stat status {};
    if (reason == EEXIST && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return PlatformError::none;
    return reason == ENOENT ? PlatformError::pathNotFound : fromErrno(reason);
}

// The text between the quotes of a line NAME="...", its backslashes taken away; nothing for any other line.
std::optional<std::string> quotedValue(std::string_view line, std::string_view name) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(name))
        return std::nullopt;
    line.remove_prefix(name.size());
    if (!line.starts_with("=\""))
        return std::nullopt;
    line.remove_prefix(2);
    std::string value;
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size())
            ++i;
        value.push_back(line[i]);
    }
    return value;
}

// Such a folder is absolute or begins with $HOME.
fs::path withHome(const std::string& value, const fs::path& home) {
    constexpr std::string_view variable = "$HOME";
    if (value == variable || value == "$HOME/")
        return home;
    if (value.starts_with("$HOME/"))
        return home / value.substr(variable.size() + 1);
    const fs::path path = value;
    return path.is_absolute() ? path : fs::path();
}

} // namespace

std::optional<std::string> processEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

Directories userDirectories(const fs::path& home, const Environment& environment) {
    if (!home.empty())
        return directoriesIn(home);
    const fs::path ownHome = environment("HOURWRIGHT_HOME").value_or("");
    if (!ownHome.empty())
        return directoriesIn(ownHome);
    const fs::path data = programFolderIn(baseFolder(environment, "XDG_DATA_HOME", ".local/share"));
    return {.data = data,
            .config = programFolderIn(baseFolder(environment, "XDG_CONFIG_HOME", ".config")),
            .state = programFolderIn(baseFolder(environment, "XDG_STATE_HOME", ".local/state")),
            .runtime = runtimeFor(environment, data)};
}

PlatformError makeDirectories(const Directories& directories) {
    const Parents parents = directories.ownHome ? Parents::mustExist : Parents::create;
    for (const fs::path* path : {&directories.data, &directories.config, &directories.state, &directories.runtime}) {
        const PlatformError error = makePrivateDirectory(*path, parents);
        if (error != PlatformError::none)
            return error;
    }
    return PlatformError::none;
}

PlatformError makePrivateDirectory(const fs::path& path, Parents parents) {
    const PlatformError error = makeOne(path);
    const fs::path parent = path.parent_path();
    if (error != PlatformError::pathNotFound || parents == Parents::mustExist || parent.empty() || parent == path)
        return error;
    const PlatformError parentError = makePrivateDirectory(parent, parents);
    return parentError == PlatformError::none ? makeOne(path) : parentError;
}

fs::path documentsDirectory(const Environment& environment) {
    const fs::path home = homeFolder(environment);
    fs::path documents = home;
    std::ifstream file(baseFolder(environment, "XDG_CONFIG_HOME", ".config") / "user-dirs.dirs");
    for (std::string line; std::getline(file, line);) {
        const auto value = quotedValue(line, "XDG_DOCUMENTS_DIR");
        const fs::path path = value ? withHome(*value, home) : fs::path();
        if (!path.empty())
            documents = path;
    }
    return documents;
}

} // namespace hourwright::platform
