#pragma once

#include "platform/error.h"

#include <cstddef>
#include <cstdint>
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
    /// True when bytes that were written can be taken back: in a file they can, in standard output or a pipe they
    /// cannot.
    [[nodiscard]] virtual bool canTakeBack() const { return false; }
    /// Takes back the last `count` of the bytes written. An error when they cannot be taken back or are not so many.
    [[nodiscard]] virtual bool takeBack([[maybe_unused]] std::uint64_t count) { return false; }

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
