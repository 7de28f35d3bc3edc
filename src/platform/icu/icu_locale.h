#pragma once

#include "platform/locale.h"

#include <memory>
#include <string_view>

namespace hourwright::platform {

/// The locale of that name: "de_DE", "ja_JP.eucJP", "sr_RS@latin"; "C" and "POSIX" count as en_US. Null for a name that
/// is malformed or whose language or territory does not exist. Making one is cheap: patterns, collation rules and the
/// code page are loaded when first used.
[[nodiscard]] std::unique_ptr<Locale> makeIcuLocale(std::string_view name);

} // namespace hourwright::platform
