#pragma once

#include <filesystem>
#include <string>

namespace hourwright::platform {

/// Opens things with the programs that the user has chosen for them.
class Shell {
public:
    virtual ~Shell() = default;

    /// Opens a file with the program for its kind, or a folder. False when nothing took it.
    virtual bool open(const std::filesystem::path& file) = 0;

    /// Opens a local page in the user's browser, at an anchor ("" none). False when nothing took it.
    virtual bool openPage(const std::filesystem::path& page, const std::string& anchor) = 0;
};

} // namespace hourwright::platform
