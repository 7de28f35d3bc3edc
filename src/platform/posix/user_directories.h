#pragma once

#include "platform/error.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace hourwright::platform {

/// Looks up an environment variable by name; nothing when it is not set.
using Environment = std::function<std::optional<std::string>(const char* name)>;

/// The variables of this process.
[[nodiscard]] std::optional<std::string> processEnvironment(const char* name);

/// Where the program keeps its files. All paths are absolute; they are empty when the user has no home at all.
struct Directories {
    std::filesystem::path data;
    std::filesystem::path config;
    std::filesystem::path state;
    /// Locks and sockets, where nobody else can enter.
    std::filesystem::path runtime;
    /// One folder named by the user holds everything. A missing parent of it is taken for a typing mistake.
    bool ownHome = false;

    [[nodiscard]] std::filesystem::path recordsFile() const { return data / "hourwright.db"; }
    [[nodiscard]] std::filesystem::path settingsFile() const { return config / "settings.db"; }

    friend bool operator==(const Directories&, const Directories&) = default;
};

/// The directories for a home given on the command line (empty: none), else for $HOURWRIGHT_HOME, else those of the
/// XDG conventions. Nothing is created.
[[nodiscard]] Directories userDirectories(const std::filesystem::path& home, const Environment& environment);

/// Creates the directories that are missing, for their owner only.
[[nodiscard]] PlatformError makeDirectories(const Directories& directories);

enum class Parents : bool { mustExist, create };

/// Creates a directory for its owner only. One that exists is left as it is, which is no error.
[[nodiscard]] PlatformError makePrivateDirectory(const std::filesystem::path& path, Parents parents);

/// The folder for the user's documents; the home folder when none is set.
[[nodiscard]] std::filesystem::path documentsDirectory(const Environment& environment);

} // namespace hourwright::platform
