#pragma once

#include "platform/error.h"

#include <filesystem>

struct sqlite3;

namespace hourwright::platform::sqlite {

/// Keeps every other program and connection from a database file, also from one too damaged to be opened, as long as it
/// lives. What a transaction that was cut short left beside the file is taken back first, where that is possible.
class ExclusiveFile {
public:
    /// Waits a few seconds for those who read or write it. A file that does not exist needs no keeping.
    explicit ExclusiveFile(const std::filesystem::path& file);
    ~ExclusiveFile();
    ExclusiveFile(const ExclusiveFile&) = delete;
    ExclusiveFile& operator=(const ExclusiveFile&) = delete;

    /// `none` when it is held; `locked` when others did not let go of it.
    [[nodiscard]] PlatformError error() const { return error_; }

private:
    [[nodiscard]] int lock();

    sqlite3* connection_ = nullptr;
    PlatformError error_ = PlatformError::none;
};

} // namespace hourwright::platform::sqlite
