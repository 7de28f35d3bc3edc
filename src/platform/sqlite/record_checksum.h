#pragma once

#include "platform/object_store.h"
#include "platform/sqlite/stored_value.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace hourwright::platform::sqlite {

/// CRC-32C (Castagnoli) over the stored values of one record. It notices every single-bit flip and every burst of up
/// to 32 bits.
class RecordChecksum {
public:
    void add(std::span<const std::byte> bytes);
    void add(std::string_view text) { add(std::as_bytes(std::span(text))); }
    void add(std::uint64_t number);

    [[nodiscard]] std::uint32_t value() const { return ~state_; }

private:
    std::uint32_t state_ = 0xFFFF'FFFF;
};

/// Folds bytes into the state of such a checksum, on any processor; `RecordChecksum` uses an instruction where there is
/// one.
[[nodiscard]] std::uint32_t foldByTables(std::uint32_t state, std::span<const std::byte> bytes);

/// The checksum of a record: of its id and, for each value in stored order, its property, then its number, or the
/// length and bytes of its text or blob.
[[nodiscard]] std::uint32_t checksumOfRecord(ObjectId id, std::span<const StoredValue> values);

} // namespace hourwright::platform::sqlite
