#pragma once

#include "platform/store_copies.h"

namespace hourwright::platform::sqlite {

/// Puts a file, which lies on the disk in the same folder, in the place of a database file. That one gets a name of its
/// own with `now` in it, together with what SQLite keeps beside it, so that nothing of it is ever applied to the new
/// one. At every moment the old or the new file has the place. The caller keeps others from the database meanwhile.
[[nodiscard]] RestoredCopy replaceDatabase(const std::filesystem::path& replacement,
                                           const std::filesystem::path& database, const SystemTime& now);

} // namespace hourwright::platform::sqlite
