#pragma once

#include "platform/property.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace hourwright::platform::sqlite {

/// The value of a property as the file keeps it: a number, or the bytes of a blob or of a text in UTF-8. The bytes are
/// borrowed.
struct StoredValue {
    PropertyId id;
    std::uint64_t number = 0;
    std::span<const std::byte> bytes{};

    friend bool operator==(const StoredValue& a, const StoredValue& b) {
        return a.id == b.id && a.number == b.number && std::ranges::equal(a.bytes, b.bytes);
    }
};

/// What stands in a record's row beside its values: the number of its shape and the checksum.
struct RowHead {
    std::int64_t shape = 0;
    std::uint32_t checksum = 0;

    friend bool operator==(const RowHead&, const RowHead&) = default;
};

/// A column whose value changes; an absent value is NULL.
struct ColumnChange {
    PropertyId id;
    bool hadValue = false;
    bool hasValue = false;
    StoredValue before{};
    StoredValue after{};
};

[[nodiscard]] inline std::string_view asText(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

[[nodiscard]] inline std::span<const std::byte> asBytes(std::string_view text) {
    return std::as_bytes(std::span(text));
}

} // namespace hourwright::platform::sqlite
