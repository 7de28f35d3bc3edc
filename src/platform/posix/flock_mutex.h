#pragma once

#include "platform/named_mutex.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace hourwright::platform {

/// A mutex for all processes that use the same directory and name; never null. It is a kernel lock on a file in the
/// directory, which is made when only it is missing. Two objects of one process exclude each other as well; one object
/// may be locked again by its holder and is then unlocked as many times.
[[nodiscard]] std::unique_ptr<NamedMutex> makeNamedMutex(const std::filesystem::path& directory, std::string_view name);

} // namespace hourwright::platform
