#pragma once

#include "exchange/csv_options.h"
#include "platform/error.h"
#include "platform/file_writer.h"
#include "platform/locale.h"
#include "store/date_walk.h"

#include <cstdint>
#include <filesystem>
#include <functional>

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

/// Decide which records of the range are exported.
using TimeEntryFilter = std::function<bool(const store::TimeEntry&)>;
using ExpenseFilter = std::function<bool(const store::ExpenseEntry&)>;

/// Writes a header line and one line for every record of the range that the filter accepts, in date order. Nothing in
/// the range leaves a file with the header. After a failure the file stays with what was written.
[[nodiscard]] ExportResult exportTimeEntries(store::RecordStore& entries, const store::DateRange& range,
                                             const TimeEntryFilter& accepts, const CsvOptions& options,
                                             const ExportTarget& target);

/// The same for the expenses of one type; others are passed over.
[[nodiscard]] ExportResult exportExpenses(store::RecordStore& expenses, store::ExpenseType type,
                                          const store::DateRange& range, const ExpenseFilter& accepts,
                                          const CsvOptions& options, const ExportTarget& target);

} // namespace hourwright::exchange
