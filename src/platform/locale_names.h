#pragma once

#include <functional>
#include <string>

namespace hourwright::platform {

/// Looks up an environment variable; null when it is not set. `std::getenv` is one.
using EnvironmentLookup = std::function<const char*(const char* name)>;

/// Name of the locale that the user chose for dates and times: LC_ALL, else LC_TIME, else LANG, else "C". A variable
/// that is set to nothing counts as not set.
[[nodiscard]] std::string userLocaleName(const EnvironmentLookup& environment);

/// Name of the system's own locale: LC_ALL, else LANG, else "C".
[[nodiscard]] std::string systemLocaleName(const EnvironmentLookup& environment);

} // namespace hourwright::platform
