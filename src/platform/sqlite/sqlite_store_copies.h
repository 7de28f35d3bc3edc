#pragma once

#include "platform/posix/user_directories.h"
#include "platform/store_copies.h"

#include <memory>

namespace hourwright::platform {

struct StoreCopyPlaces {
    std::filesystem::path records;
    std::filesystem::path settings;
    std::filesystem::path copies; ///< the folder of the copies; made, for its owner only, with the first one
};

/// Where they are for a user: the copies out of the way, in the directory of what can be done without.
[[nodiscard]] StoreCopyPlaces copyPlaces(const Directories& directories);

/// The copies of these two SQLite files; never null.
[[nodiscard]] std::unique_ptr<StoreCopies> openStoreCopies(const StoreCopyPlaces& places);

} // namespace hourwright::platform
