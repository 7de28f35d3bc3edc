#pragma once

#include "platform/sqlite/volume.h"

#include <functional>
#include <span>
#include <string_view>

namespace hourwright::platform::sqlite {

/// Verifies the file's structure, then every record of the given databases and the history against their
/// checksums. Reports each finding
/// as a line of text; true when there is none.
[[nodiscard]] bool checkStore(Volume& volume, std::span<const DatabaseInfo> databases,
                              const std::function<void(std::string_view)>& report);

} // namespace hourwright::platform::sqlite
