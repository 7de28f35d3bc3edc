#pragma once

#include "platform/error.h"
#include "platform/file_writer.h"
#include "platform/locale.h"

#include <cstdint>
#include <filesystem>

namespace hourwright::exchange {

enum class ExportStatus : std::uint8_t { done, notCreated, writeFailed, readFailed };

/// How an export ended, with the platform's error unless it is done, and how many records it wrote.
struct ExportResult {
    ExportStatus status = ExportStatus::done;
    platform::PlatformError error = platform::PlatformError::none;
    std::uint64_t records = 0;

    [[nodiscard]] bool ok() const { return status == ExportStatus::done; }
    friend bool operator==(const ExportResult&, const ExportResult&) = default;
};

/// Where an export goes. Dates and times are in the form of the system's locale, which also gives the code page.
struct ExportTarget {
    platform::Files& files;
    std::filesystem::path path;
    const platform::Locale& systemLocale;
};

} // namespace hourwright::exchange
