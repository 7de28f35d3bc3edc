#pragma once

#include "platform/object_store.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace hourwright::platform {

struct StoreFileOptions {
    /// How long an operation waits for another process's lock before it fails with error 33.
    std::chrono::milliseconds busyTimeout{5000};
    /// Called after every committed transaction of this object store, whoever made it. It must not use the store.
    std::function<void()> onCommitted;
    /// How much history is kept: the oldest steps go first, the newest one stays whatever its size.
    std::size_t historySteps = 100;
    std::uint64_t historyBytes = std::uint64_t{64} << 20;
};

/// An opened store, or null with the platform's error number and a sentence for people.
struct OpenedStore {
    std::unique_ptr<ObjectStore> store;
    PlatformError error = PlatformError::none;
    std::string reason;
};

/// Opens the record store kept in one SQLite file, which is created (readable by its owner only) when missing. A file
/// that belongs to another program, is damaged or was written by a newer version is refused and left as it is. The
/// databases opened on the store must not outlive it.
[[nodiscard]] OpenedStore openSqliteObjectStore(const std::filesystem::path& file, StoreFileOptions options = {});

} // namespace hourwright::platform
