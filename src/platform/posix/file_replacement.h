#pragma once

#include "platform/error.h"

#include <filesystem>

namespace hourwright::platform {

/// A file that is made beside its place and gets its name only when it is complete: until then, and when it never is,
/// what had the name stays as it was. What can have no other file in its place, such as standard output ("-"), a pipe,
/// a link or a file in a folder that takes no new ones, is written to directly.
class FileReplacement {
public:
    explicit FileReplacement(std::filesystem::path name);
    /// Takes away what was not kept.
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Why there is no place to write to; `none` when there is one.
    [[nodiscard]] PlatformError error() const { return error_; }
    /// Where to write.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// Once it is written and closed: brings it to the disk and gives it its name.
    [[nodiscard]] PlatformError keep();

private:
    [[nodiscard]] bool isApart() const { return path_ != name_; }

    std::filesystem::path name_;
    std::filesystem::path path_;
    PlatformError error_ = PlatformError::none;
};

} // namespace hourwright::platform
