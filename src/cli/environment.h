#pragma once

#include "platform/clock.h"
#include "platform/file_writer.h"
#include "platform/message_box.h"
#include "platform/posix/user_directories.h"

#include <functional>
#include <memory>
#include <string_view>

namespace hourwright::cli {

/// What a command line reaches of the machine. The program gives it the real things, a test its own.
struct Environment {
    platform::Files& files; ///< "-" is standard output
    const platform::Clock& clock;
    platform::Environment variable; ///< environment variables by name
    /// Makes what shows messages and asks questions; with `yes`, every question is answered Yes.
    std::function<std::unique_ptr<platform::MessageBox>(bool yes)> makeMessageBox;
    std::function<void(std::string_view)> writeError; ///< standard error
};

} // namespace hourwright::cli
