#pragma once

#include "platform/property.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace hourwright::store {

/// The properties of a record being written, in the order they are added. An empty or zero field is left out of a new
/// record and deleted from an existing one. Texts and blobs are borrowed from the record.
class PropertyList {
public:
    enum class Mode : std::uint8_t { insert, update };

    explicit PropertyList(Mode mode) : mode_(mode) { values_.reserve(24); }

    // A list is handed to the store as the values that it holds.
    operator std::span<const platform::PropertyValue>() const { return values_; } // NOLINT(google-explicit-constructor)

    void text(std::uint16_t field, std::u16string_view value);
    void fileTime(std::uint16_t field, platform::FileTime value);
    void ui2(std::uint16_t field, std::uint16_t value);
    void ui4(std::uint16_t field, std::uint32_t value);

    void textUnlessEmpty(std::uint16_t field, std::u16string_view value);
    void blobUnlessEmpty(std::uint16_t field, std::span<const std::byte> value);
    void fileTimeUnlessZero(std::uint16_t field, platform::FileTime value);
    void ui2UnlessZero(std::uint16_t field, std::uint16_t value);
    void ui4UnlessZero(std::uint16_t field, std::uint32_t value);
    void booleanUnlessFalse(std::uint16_t field, bool value);

    /// Deletes a property of an existing record; nothing for a new one.
    void deleteProperty(platform::PropertyId id);

private:
    void add(bool present, const platform::PropertyValue& value);

    Mode mode_;
    std::vector<platform::PropertyValue> values_;
};

} // namespace hourwright::store
