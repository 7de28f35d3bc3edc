#pragma once

#include <filesystem>

namespace hourwright::desktop {

/// The installed manual, or the one of the source tree that the program was built from; empty when neither is there.
[[nodiscard]] std::filesystem::path manualPage();

} // namespace hourwright::desktop
