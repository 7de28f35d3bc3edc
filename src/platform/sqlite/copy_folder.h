#pragma once

#include "platform/sqlite/database_copy.h"
#include "platform/store_copies.h"

namespace hourwright::platform::sqlite {

/// The copy whose folder this is, as its description says; nothing when that cannot be read.
[[nodiscard]] std::optional<StoreCopy> readCopyFolder(const std::filesystem::path& folder);

/// Fills an empty folder with copies of records and settings, looks into them, and adds description and digests, the
/// number of records and the bytes to `copy`. Settings that cannot be copied are left out. At the end all of it lies on
/// the disk and was read back from there.
[[nodiscard]] FileOutcome fillCopyFolder(StoreCopy& copy, const std::filesystem::path& folder,
                                         const std::filesystem::path& records, const std::filesystem::path& settings,
                                         const KeepGoing& keepGoing);

/// Compares the digests of the files with those beside them, and looks into records and settings.
[[nodiscard]] CopyHealth verifyCopyFolder(const std::filesystem::path& folder, const KeepGoing& keepGoing);

/// Copies a file of the folder to another place, where it lies on the disk then and is what the digest says, else
/// `fileCorrupt`.
[[nodiscard]] PlatformError fetchFromCopy(const std::filesystem::path& folder, CopyPart part,
                                          const std::filesystem::path& to);
[[nodiscard]] bool copyHas(const std::filesystem::path& folder, CopyPart part);

} // namespace hourwright::platform::sqlite
