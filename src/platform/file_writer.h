#pragma once

#include "platform/error.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

namespace hourwright::platform {

/// A file being written. Bytes are gathered and written in large pieces; every byte is counted, a short write is a
/// failure. After a failure all further calls fail and `error` says why. Bytes not yet closed may be lost.
class FileWriter {
public:
    virtual ~FileWriter() = default;

    [[nodiscard]] virtual bool write(std::string_view bytes) = 0;
    /// Writes what is left and closes the file; false when anything was not written.
    [[nodiscard]] virtual bool close() = 0;
    [[nodiscard]] virtual PlatformError error() const = 0;
};

/// Result of creating a file: a writer, or null and the reason.
struct CreatedFile {
    std::unique_ptr<FileWriter> writer;
    PlatformError error = PlatformError::none;
};

/// The files of the device.
class Files {
public:
    virtual ~Files() = default;

    /// Creates the file, or empties an existing one, for writing by its owner only. "-" is standard output.
    [[nodiscard]] virtual CreatedFile create(const std::filesystem::path& path) = 0;
};

} // namespace hourwright::platform
