#pragma once

#include "platform/error.h"

#include <filesystem>

namespace hourwright::platform {

/// Makes an empty file that only its owner can read and write. An existing file is left as it is, which is no error.
[[nodiscard]] PlatformError createPrivateFile(const std::filesystem::path& path);

/// From now on, files and folders that this process makes belong to their owner alone.
void keepNewFilesPrivate();

} // namespace hourwright::platform
