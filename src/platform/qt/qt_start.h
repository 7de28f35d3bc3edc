#pragma once

#include "platform/posix/user_directories.h"

#include <QApplication>
#include <memory>

namespace hourwright::platform {

/// Starts the toolkit. Null, after one line on standard error, when there is no display to show windows on; a display
/// that is named but cannot be reached ends the program with exit code 1 after such a line. Numbers in the C library
/// stay those of the C locale.
[[nodiscard]] std::unique_ptr<QApplication> startToolkit(int& argc, char** argv, const Environment& environment);

} // namespace hourwright::platform
