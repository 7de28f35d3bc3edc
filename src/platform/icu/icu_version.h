#pragma once

#include <string>

namespace hourwright::platform {

/// The version of the library for languages that the program runs with, for example "72.1".
[[nodiscard]] std::string icuVersion();

} // namespace hourwright::platform
