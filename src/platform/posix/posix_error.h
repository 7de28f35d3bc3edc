#pragma once

#include "platform/error.h"

namespace hourwright::platform {

/// The platform's error number for a value of errno.
[[nodiscard]] PlatformError fromErrno(int errorNumber);

} // namespace hourwright::platform
