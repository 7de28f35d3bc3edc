#pragma once

#include "platform/registry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::cli {

/// The data of a value as one line of text: a DWORD in decimal, a string up to its terminator, all else as bytes in
/// hexadecimal with commas between.
[[nodiscard]] std::string registryText(const platform::RegistryValue& value);

/// A string's text up to its terminator.
[[nodiscard]] std::u16string registryString(const platform::RegistryValue& value);

/// A DWORD of four bytes; nothing for any other value.
[[nodiscard]] std::optional<std::uint32_t> registryDword(const platform::RegistryValue& value);

/// Reads "dword:N" (decimal, or hexadecimal behind "0x"), "sz:TEXT" or "hex:aa,bb,...".
[[nodiscard]] std::optional<platform::RegistryValue> parseRegistryArgument(std::string_view name,
                                                                           std::string_view text);

} // namespace hourwright::cli
