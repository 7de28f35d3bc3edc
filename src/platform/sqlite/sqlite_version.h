#pragma once

#include <string>

namespace hourwright::platform {

/// The version of the database library that the program runs with, for example "3.40.1".
[[nodiscard]] std::string sqliteVersion();

} // namespace hourwright::platform
