#pragma once

#include "platform/icu/locale_parts.h"

#include <cstdint>

namespace hourwright::platform {

/// Number of the ANSI code page that goes with a locale's language and, where it matters, its script: Western 1252
/// unless the language has another.
[[nodiscard]] std::uint32_t ansiCodePageOf(const LocaleParts& locale);

} // namespace hourwright::platform
