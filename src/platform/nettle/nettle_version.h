#pragma once

#include <string>

namespace hourwright::platform {

/// The version of the Nettle library in use, for example "3.8".
[[nodiscard]] std::string nettleVersion();

} // namespace hourwright::platform
