#pragma once

#include "platform/locale.h"
#include "platform/posix/user_directories.h"

#include <optional>
#include <string_view>

namespace hourwright::platform {

/// The user's and the system's locale: both the one given, else those of the environment's variables. A name that does
/// not exist counts as "C".
[[nodiscard]] Locales makeLocales(std::optional<std::string_view> given, const Environment& environment);

} // namespace hourwright::platform
