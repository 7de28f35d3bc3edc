#pragma once

#include "platform/shell.h"

namespace hourwright::platform {

/// Opens through the desktop's own services.
class QtShell : public Shell {
public:
    bool open(const std::filesystem::path& file) override;
    bool openPage(const std::filesystem::path& page, const std::string& anchor) override;
};

} // namespace hourwright::platform
