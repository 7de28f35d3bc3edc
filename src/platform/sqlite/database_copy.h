#pragma once

#include "platform/store_copies.h"

namespace hourwright::platform::sqlite {

/// How copying or reading a database file ended; `reason` in plain words when it failed.
struct FileOutcome {
    CopyOutcome outcome = CopyOutcome::done;
    PlatformError error = PlatformError::none;
    std::string reason;
};

/// Copies a database as it is at one moment into a new file for its owner only. Others may write to it meanwhile; they
/// never wait longer than for a piece of it, unless they keep writing so that the copy would not come to an end. The
/// copy is not on the disk yet.
[[nodiscard]] FileOutcome copyDatabase(const std::filesystem::path& from, const std::filesystem::path& to,
                                       const KeepGoing& keepGoing);

/// Reads the whole of a file that should be a record store and counts its records. `sourceDamaged` when something is
/// wrong in it.
[[nodiscard]] FileOutcome checkStoreFile(const std::filesystem::path& file, const KeepGoing& keepGoing,
                                         std::uint64_t& records);
/// The same of a file that is not to be written to, nor mended by a journal beside it.
[[nodiscard]] FileOutcome checkStoredCopy(const std::filesystem::path& file, const KeepGoing& keepGoing);

} // namespace hourwright::platform::sqlite
