#pragma once

#include "platform/error.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>

namespace hourwright::platform {

/// Returns when the file, or the names in the folder, are on the disk.
[[nodiscard]] PlatformError syncFile(const std::filesystem::path& file);
[[nodiscard]] PlatformError syncFolder(const std::filesystem::path& folder);

/// Asks the system to forget what it holds of a file that is on the disk, so that the next reading comes from there.
void forgetCached(const std::filesystem::path& file);

/// Reads a file from its beginning to its end, piece by piece; it ends early, without an error, once `take` returns
/// false. Not for a database that this process has open: closing the file would drop its locks.
[[nodiscard]] PlatformError readFile(const std::filesystem::path& file,
                                     const std::function<bool(std::span<const std::byte>)>& take);

/// Gives a file another name in its file system, in place of what has it.
[[nodiscard]] PlatformError renameFile(const std::filesystem::path& from, const std::filesystem::path& to);
/// Gives a file a second name; 183 when something has it.
[[nodiscard]] PlatformError linkFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Holds a folder among the programs that ask for it, until it is destroyed or the process ends.
class FolderLock {
public:
    /// Nothing when another object holds it (`error` is `locked` then) or its file cannot be made.
    [[nodiscard]] static std::optional<FolderLock> take(const std::filesystem::path& folder, PlatformError& error);
    ~FolderLock();
    FolderLock(FolderLock&& other) noexcept;
    FolderLock& operator=(FolderLock&&) = delete;

private:
    explicit FolderLock(int file) : file_(file) {}
    int file_;
};

} // namespace hourwright::platform
