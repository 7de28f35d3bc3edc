#pragma once

#include "platform/error.h"
#include "platform/sqlite/connection.h"

#include <filesystem>
#include <optional>
#include <string>

namespace hourwright::platform::sqlite {

/// Marks the file as a record store of this program ("HWst") and the version of its layout.
inline constexpr std::uint32_t storeApplicationId = 0x4857'7374;
inline constexpr std::uint32_t storeLayoutVersion = 1;

/// Why a file cannot be used as a store.
struct StoreProblem {
    PlatformError error = PlatformError::none;
    std::string reason; ///< in plain words, for people
};

/// Judges a file by its header without touching it. Nothing when it is missing, empty or ours.
[[nodiscard]] std::optional<StoreProblem> inspectStoreFile(const std::filesystem::path& file);

/// Brings the connection of an inspected file into the state of a usable store: lays out an empty one, and refuses
/// one whose layout cannot be read.
[[nodiscard]] std::optional<StoreProblem> prepareStoreFile(Connection& connection);

} // namespace hourwright::platform::sqlite
