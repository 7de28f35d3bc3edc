#pragma once

#include "platform/property.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::cli {

/// A property that owns its text or blob.
struct OwnedProperty {
    platform::PropertyId id;
    bool deletion = false;
    std::uint64_t number = 0;
    std::u16string text;
    std::vector<std::byte> blob;

    /// The same property, borrowing from this one.
    [[nodiscard]] platform::PropertyValue value() const {
        return {.id = id, .deletion = deletion, .number = number, .text = text, .blob = blob};
    }
    friend bool operator==(const OwnedProperty&, const OwnedProperty&) = default;
};

/// "UI2", "UI4", "BOOL", "FILETIME", "LPWSTR" or "BLOB".
[[nodiscard]] std::string_view typeName(platform::ValueType type);

/// The value as one line of text: numbers in decimal, a BOOL as 0 or 1, a FILETIME as "YYYY-MM-DD HH:MM:SS.mmm" (its
/// ticks when it lies beyond the calendar), a text with control characters as \u and four digits, a BLOB as hexadecimal
/// digits.
[[nodiscard]] std::string valueText(const platform::PropertyValue& value);

/// "1004 LPWSTR Design".
[[nodiscard]] std::string propertyLine(const platform::PropertyValue& value);

/// Reads "NUMBER:TYPE=VALUE", the value in the form of `valueText`, or "-" to delete the property. A number may be too
/// large for its type; storing it fails.
[[nodiscard]] std::optional<OwnedProperty> parseProperty(std::string_view text);

/// Bytes as hexadecimal digits with a separator between them.
[[nodiscard]] std::string hexText(std::span<const std::byte> bytes, std::string_view separator = {});

/// The bytes of pairs of hexadecimal digits; nothing for any other text.
[[nodiscard]] std::optional<std::vector<std::byte>> parseHex(std::string_view digits);

} // namespace hourwright::cli
