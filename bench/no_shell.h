#pragma once

#include "platform/shell.h"

#include <filesystem>
#include <string>

namespace hourwright::bench {

/// A desktop that opens nothing.
class NoShell : public platform::Shell {
public:
    bool open(const std::filesystem::path& /*file*/) override { return false; }
    bool openPage(const std::filesystem::path& /*page*/, const std::string& /*anchor*/) override { return false; }
};

} // namespace hourwright::bench
