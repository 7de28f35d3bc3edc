#include "platform/registry.h"

#include <algorithm>

namespace hourwright::platform {

namespace {

constexpr std::size_t dwordBytes = 4;

std::uint32_t byteAt(std::span<const std::byte> data, std::size_t index) {
    return std::to_integer<std::uint32_t>(data[index]);
}

void appendUnit(std::vector<std::byte>& data, char16_t unit) {
    data.push_back(static_cast<std::byte>(unit & 0xFF));
    data.push_back(static_cast<std::byte>(unit >> 8));
}

} // namespace

std::optional<std::uint32_t> RegistryKey::readDword(std::u16string_view name) const {
    const auto value = query(name);
    if (!value || value->type != RegistryType::dword || value->data.size() != dwordBytes)
        return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = dwordBytes; i-- > 0;)
        number = number << 8 | byteAt(value->data, i);
    return number;
}

std::optional<std::u16string> RegistryKey::readString(std::u16string_view name, std::size_t capacity) const {
    const auto value = query(name);
    if (!value || value->type != RegistryType::string || value->data.size() > capacity * 2)
        return std::nullopt;
    std::u16string text;
    for (std::size_t i = 0; i + 1 < value->data.size(); i += 2) {
        const auto unit = static_cast<char16_t>(byteAt(value->data, i) | byteAt(value->data, i + 1) << 8);
        if (unit == 0)
            break;
        text.push_back(unit);
    }
    return text;
}

std::optional<std::vector<std::byte>> RegistryKey::readBinary(std::u16string_view name, std::size_t size) const {
    auto value = query(name);
    if (!value || value->type != RegistryType::binary || value->data.size() != size)
        return std::nullopt;
    return std::move(value->data);
}

bool RegistryKey::writeDword(std::u16string_view name, std::uint32_t value) {
    RegistryValue stored{.name = std::u16string(name), .type = RegistryType::dword, .data = {}};
    for (std::size_t i = 0; i < dwordBytes; ++i)
        stored.data.push_back(static_cast<std::byte>(value >> (8 * i) & 0xFF));
    return set(stored);
}

bool RegistryKey::writeString(std::u16string_view name, std::u16string_view value, std::size_t capacity) {
    if (capacity != 0)
        value = value.substr(0, capacity - 1);
    RegistryValue stored{.name = std::u16string(name), .type = RegistryType::string, .data = {}};
    stored.data.reserve(2 * std::max(capacity, value.size() + 1));
    for (const char16_t unit : value)
        appendUnit(stored.data, unit);
    appendUnit(stored.data, u'\0');
    if (capacity != 0)
        stored.data.resize(2 * capacity);
    return set(stored);
}

bool RegistryKey::writeBinary(std::u16string_view name, std::span<const std::byte> data) {
    return set({.name = std::u16string(name), .type = RegistryType::binary, .data = {data.begin(), data.end()}});
}

} // namespace hourwright::platform
