#pragma once

#include <cstdint>

namespace hourwright::exchange {

/// The character of a byte from 0x80 on in code page 874, 1250, 1251 or 1253 to 1258; U+FFFD for a byte without one and
/// for any other code page.
[[nodiscard]] char16_t upperAnsiCharacter(std::uint16_t codePage, unsigned char byte);

} // namespace hourwright::exchange
