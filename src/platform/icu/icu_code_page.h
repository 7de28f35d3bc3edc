#pragma once

#include "platform/code_page.h"

#include <memory>

namespace hourwright::platform {

/// The code page of that number: 874, 932, 936, 949, 950 or 1250 to 1258; null for any other. Only characters that
/// come back as themselves are converted, all others become "?". Its tables are made when a text first needs them.
[[nodiscard]] std::unique_ptr<CodePage> makeIcuCodePage(std::uint32_t number);

} // namespace hourwright::platform
