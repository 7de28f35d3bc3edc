#pragma once

#include <string>

namespace hourwright::platform {

/// The version of the codec of recordings that the program runs with, for example "1.3.1".
[[nodiscard]] std::string opusVersion();

} // namespace hourwright::platform
