#pragma once

#include "platform/error.h"

#include <string_view>

namespace hourwright::platform {

/// Writes all of the bytes to a file descriptor, however many calls that takes. A closed pipe is an error like any
/// other and does not end the process.
[[nodiscard]] PlatformError writeAll(int file, std::string_view bytes);

} // namespace hourwright::platform
