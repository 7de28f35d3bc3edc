#pragma once

#include "platform/file_time.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace hourwright::platform {

/// Types of property values, with the codes that stand in the low half of a property identifier.
enum class ValueType : std::uint16_t { boolean = 11, ui2 = 18, ui4 = 19, text = 31, fileTime = 64, blob = 65 };

/// A property identifier: field number in the high 16 bits, type code in the low 16 bits.
struct PropertyId {
    std::uint32_t value = 0;

    constexpr PropertyId() = default;
    explicit constexpr PropertyId(std::uint32_t packed) : value(packed) {}
    constexpr PropertyId(std::uint16_t number, ValueType type)
        : value(static_cast<std::uint32_t>(number) << 16 | static_cast<std::uint32_t>(type)) {}

    [[nodiscard]] constexpr std::uint16_t number() const { return static_cast<std::uint16_t>(value >> 16); }
    [[nodiscard]] constexpr ValueType type() const { return static_cast<ValueType>(value & 0xFFFF); }

    friend constexpr auto operator<=>(const PropertyId&, const PropertyId&) = default;
};

/// True for the six type codes above; a packed identifier from outside may carry any.
[[nodiscard]] constexpr bool isKnownType(ValueType type) {
    switch (type) {
    case ValueType::boolean:
    case ValueType::ui2:
    case ValueType::ui4:
    case ValueType::text:
    case ValueType::fileTime:
    case ValueType::blob: return true;
    }
    return false;
}

/// One property of a record, or the order to delete it. Numbers (ui2, ui4, boolean as 0 or 1, FILETIME ticks) are in
/// `number`; texts and blobs are borrowed, from the caller when writing and from a PropertyBuffer when reading.
struct PropertyValue {
    PropertyId id;
    bool deletion = false;
    std::uint64_t number = 0;
    std::u16string_view text{};
    std::span<const std::byte> blob{};

    static constexpr PropertyValue ofUi2(std::uint16_t field, std::uint16_t v) {
        return {.id = {field, ValueType::ui2}, .number = v};
    }
    static constexpr PropertyValue ofUi4(std::uint16_t field, std::uint32_t v) {
        return {.id = {field, ValueType::ui4}, .number = v};
    }
    static constexpr PropertyValue ofBoolean(std::uint16_t field, bool v) {
        return {.id = {field, ValueType::boolean}, .number = v ? 1U : 0U};
    }
    static constexpr PropertyValue ofFileTime(std::uint16_t field, FileTime v) {
        return {.id = {field, ValueType::fileTime}, .number = v.ticks};
    }
    static constexpr PropertyValue ofText(std::uint16_t field, std::u16string_view v) {
        return {.id = {field, ValueType::text}, .text = v};
    }
    static constexpr PropertyValue ofBlob(std::uint16_t field, std::span<const std::byte> v) {
        return {.id = {field, ValueType::blob}, .blob = v};
    }
    static constexpr PropertyValue deletionOf(PropertyId property) { return {.id = property, .deletion = true}; }

    [[nodiscard]] constexpr FileTime fileTime() const { return FileTime{number}; }
};

/// The properties of one record as read, in stored order, with the memory that their texts and blobs point into.
/// Reading again into the same buffer reuses that memory and invalidates the earlier values.
class PropertyBuffer {
public:
    PropertyBuffer() = default;
    PropertyBuffer(const PropertyBuffer&) = delete;
    PropertyBuffer& operator=(const PropertyBuffer&) = delete;
    PropertyBuffer(PropertyBuffer&&) = default;
    PropertyBuffer& operator=(PropertyBuffer&&) = default;

    [[nodiscard]] std::span<const PropertyValue> values() const { return values_; }

    /// The first property with this identifier, or null.
    [[nodiscard]] const PropertyValue* find(PropertyId id) const;

    /// Empties the buffer and makes room for that many text units and blob bytes in all; no more may be added.
    void reset(std::size_t textUnits, std::size_t blobBytes);
    void addNumber(PropertyId id, std::uint64_t number);
    /// Adds a text kept as UTF-8 in which a lone surrogate is encoded like any other code point.
    void addText(PropertyId id, std::string_view utf8);
    void addBlob(PropertyId id, std::span<const std::byte> bytes);

private:
    std::vector<PropertyValue> values_;
    std::vector<char16_t> units_;
    std::vector<std::byte> bytes_;
    std::size_t unitsUsed_ = 0;
    std::size_t bytesUsed_ = 0;
};

} // namespace hourwright::platform
