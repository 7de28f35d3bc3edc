#pragma once

#include "platform/sqlite/connection.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace hourwright::platform::sqlite {

/// The checksum of a value of the registry. Names that differ in ASCII case only are the same name.
[[nodiscard]] std::int64_t checksumOf(std::int64_t key, std::string_view name, std::int64_t type,
                                      std::span<const std::byte> data);

/// True when the row of a value, which begins with name, type, data and checksum, is as it was stored.
[[nodiscard]] bool fitsChecksum(const Statement& row, std::int64_t key);

/// Says that the value of that name is damaged.
[[nodiscard]] std::string damagedText(std::string_view name);

} // namespace hourwright::platform::sqlite
