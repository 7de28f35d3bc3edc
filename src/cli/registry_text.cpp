#include "cli/registry_text.h"

#include "cli/display_width.h"
#include "cli/property_text.h"
#include "platform/utf.h"

#include <charconv>
#include <utility>

namespace hourwright::cli {

using platform::RegistryType;
using platform::RegistryValue;

namespace {

std::uint32_t byteAt(const RegistryValue& value, std::size_t index) {
    return std::to_integer<std::uint32_t>(value.data[index]);
}

std::optional<std::uint32_t> parseDword(std::string_view text) {
    const bool hex = text.starts_with("0x") || text.starts_with("0X");
    if (hex)
        text.remove_prefix(2);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, hex ? 16 : 10);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

std::vector<std::byte> dwordData(std::uint32_t number) {
    std::vector<std::byte> data;
    for (unsigned shift = 0; shift < 32; shift += 8)
        data.push_back(static_cast<std::byte>(number >> shift & 0xFF));
    return data;
}

std::vector<std::byte> stringData(std::u16string text) {
    text += u'\0';
    std::vector<std::byte> data;
    for (const char16_t unit : text) {
        data.push_back(static_cast<std::byte>(unit & 0xFF));
        data.push_back(static_cast<std::byte>(unit >> 8));
    }
    return data;
}

// "aa,bb,...", or nothing at all for no bytes.
std::optional<std::vector<std::byte>> parseBytes(std::string_view text) {
    std::vector<std::byte> data;
    while (!text.empty()) {
        const auto comma = text.find(',');
        const auto byte = parseHex(text.substr(0, comma));
        if (!byte || byte->size() != 1 || comma == text.size() - 1)
            return std::nullopt;
        data.push_back(byte->front());
        text = comma == std::string_view::npos ? std::string_view{} : text.substr(comma + 1);
    }
    return data;
}

} // namespace

std::string registryText(const RegistryValue& value) {
    if (const auto number = registryDword(value))
        return std::to_string(*number);
    if (value.type == RegistryType::string)
        return cellText(registryString(value));
    return hexText(value.data, ",");
}

std::u16string registryString(const RegistryValue& value) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < value.data.size(); i += 2) {
        const auto unit = static_cast<char16_t>(byteAt(value, i) | byteAt(value, i + 1) << 8);
        if (unit == 0)
            break;
        text += unit;
    }
    return text;
}

std::optional<std::uint32_t> registryDword(const RegistryValue& value) {
    if (value.type != RegistryType::dword || value.data.size() != 4)
        return std::nullopt;
    return byteAt(value, 0) | byteAt(value, 1) << 8 | byteAt(value, 2) << 16 | byteAt(value, 3) << 24;
}

std::optional<RegistryValue> parseRegistryArgument(std::string_view name, std::string_view text) {
    RegistryValue value;
    value.name = platform::toUtf16(name);
    if (text.starts_with("dword:")) {
        const auto number = parseDword(text.substr(6));
        if (!number)
            return std::nullopt;
        value.data = dwordData(*number);
    } else if (text.starts_with("sz:")) {
        value.type = RegistryType::string;
        value.data = stringData(platform::toUtf16(text.substr(3)));
    } else if (text.starts_with("hex:")) {
        auto bytes = parseBytes(text.substr(4));
        if (!bytes)
            return std::nullopt;
        value.type = RegistryType::binary;
        value.data = std::move(*bytes);
    } else {
        return std::nullopt;
    }
    return value;
}

} // namespace hourwright::cli
