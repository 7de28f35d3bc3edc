#include "cli/property_text.h"

#include "cli/date_text.h"
#include "platform/utf.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace hourwright::cli {

namespace {

using platform::PropertyValue;
using platform::ValueType;

struct TypeName {
    ValueType type;
    std::string_view name;
};

constexpr std::array typeNames{
    TypeName{ValueType::ui2, "UI2"},      TypeName{ValueType::ui4, "UI4"},
    TypeName{ValueType::boolean, "BOOL"}, TypeName{ValueType::fileTime, "FILETIME"},
    TypeName{ValueType::text, "LPWSTR"},  TypeName{ValueType::blob, "BLOB"},
};

constexpr std::string_view hexDigits = "0123456789abcdef";

std::string fileTimeText(platform::FileTime time) {
    const auto calendar = platform::toSystemTime(time);
    if (!calendar)
        return std::to_string(time.ticks);
    const std::string milliseconds = std::to_string(1000 + calendar->milliseconds);
    return dateTimeText(*calendar) + '.' + milliseconds.substr(1);
}

std::string lineText(std::u16string_view text) {
    std::string out;
    for (const char c : platform::printableUtf8(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F)
            out += std::string("\\u00") + hexDigits[byte >> 4] + hexDigits[byte & 0xF];
        else
            out += c;
    }
    return out;
}

template<typename Number>
std::optional<Number> parseWhole(std::string_view text, int base = 10) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc{} && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

// Text in the form of `lineText`.
std::u16string parseLineText(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const auto code = text.starts_with("\\u00") && text.size() >= 6
                              ? parseWhole<std::uint8_t>(text.substr(4, 2), 16)
                              : std::nullopt;
        const bool control = code && (*code < 0x20 || *code == 0x7F);
        plain += control ? static_cast<char>(*code) : text.front();
        text.remove_prefix(control ? 6 : 1);
    }
    std::u16string units = platform::toUtf16(plain);
    units.resize(std::min(units.size(), units.find(u'\0')));
    return units;
}

std::optional<std::uint64_t> parseFileTime(std::string_view text) {
    if (const auto ticks = parseWhole<std::uint64_t>(text))
        return ticks;
    const auto calendar = parseDateTime(text);
    const auto time = calendar ? platform::toFileTime(*calendar) : std::nullopt;
    return time ? std::optional(time->ticks) : std::nullopt;
}

// Sets the value of a property whose type is set.
bool parseValue(std::string_view text, OwnedProperty& out) {
    std::optional<std::uint64_t> number;
    switch (out.id.type()) {
    case ValueType::text: out.text = parseLineText(text); return true;
    case ValueType::blob: {
        auto bytes = parseHex(text);
        if (bytes)
            out.blob = std::move(*bytes);
        return bytes.has_value();
    }
    case ValueType::fileTime: number = parseFileTime(text); break;
    case ValueType::boolean:
    case ValueType::ui2:
    case ValueType::ui4: number = parseWhole<std::uint64_t>(text); break;
    }
    out.number = number.value_or(0);
    return number.has_value();
}

} // namespace

std::string_view typeName(ValueType type) {
    const auto found = std::ranges::find(typeNames, type, &TypeName::type);
    return found != typeNames.end() ? found->name : "?";
}

std::string valueText(const PropertyValue& value) {
    switch (value.id.type()) {
    case ValueType::text: return lineText(value.text);
    case ValueType::blob: return hexText(value.blob);
    case ValueType::fileTime: return fileTimeText(value.fileTime());
    case ValueType::boolean:
    case ValueType::ui2:
    case ValueType::ui4: break;
    }
    return std::to_string(value.number);
}

std::string propertyLine(const PropertyValue& value) {
    std::string line = std::to_string(value.id.number());
    line += ' ';
    line += typeName(value.id.type());
    line += ' ';
    line += valueText(value);
    return line;
}

std::optional<OwnedProperty> parseProperty(std::string_view text) {
    const auto colon = text.find(':');
    const auto equals = text.find('=');
    if (colon == std::string_view::npos || equals == std::string_view::npos || equals < colon)
        return std::nullopt;
    const auto number = parseWhole<std::uint16_t>(text.substr(0, colon));
    const auto type = std::ranges::find(typeNames, text.substr(colon + 1, equals - colon - 1), &TypeName::name);
    if (!number || type == typeNames.end())
        return std::nullopt;
    OwnedProperty property;
    property.id = {*number, type->type};
    const std::string_view value = text.substr(equals + 1);
    if (value == "-")
        property.deletion = true;
    else if (!parseValue(value, property))
        return std::nullopt;
    return property;
}

std::string hexText(std::span<const std::byte> bytes, std::string_view separator) {
    std::string out;
    for (const std::byte byte : bytes) {
        const auto value = std::to_integer<unsigned>(byte);
        if (!out.empty())
            out += separator;
        out += hexDigits[value >> 4];
        out += hexDigits[value & 0xF];
    }
    return out;
}

std::optional<std::vector<std::byte>> parseHex(std::string_view digits) {
    std::vector<std::byte> bytes;
    if (digits.size() % 2 != 0)
        return std::nullopt;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const auto value = parseWhole<std::uint8_t>(digits.substr(i, 2), 16);
        if (!value)
            return std::nullopt;
        bytes.push_back(std::byte{*value});
    }
    return bytes;
}

} // namespace hourwright::cli
