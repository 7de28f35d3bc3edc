#pragma once

#include <filesystem>

namespace hourwright::desktop {

/// The manual that was installed with the program; empty when it is not there.
[[nodiscard]] std::filesystem::path manualPage();

} // namespace hourwright::desktop
