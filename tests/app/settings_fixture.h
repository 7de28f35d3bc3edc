#pragma once

#include "app/app_settings.h"
#include "platform/registry.h"
#include "support/memory_registry.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace hourwright::test {

inline const app::SettingsDevice handheld{.osMajorVersion = 5, .personalFolder = u"/home/ann/Documents"};

/// A registry with shorthands for the values of the program's own key.
class SettingsRegistry : public MemoryRegistry {
public:
    std::unique_ptr<platform::RegistryKey> key() { return create(platform::settingsKey); }

    void put(std::u16string_view name, std::uint32_t value) { key()->writeDword(name, value); }
    void put(std::u16string_view name, std::u16string_view text) { key()->writeString(name, text); }
    void putBytes(std::u16string_view name, const std::vector<std::uint8_t>& bytes) {
        key()->writeBinary(name, std::as_bytes(std::span(bytes)));
    }
    std::optional<std::uint32_t> dword(std::u16string_view name) { return key()->readDword(name); }
    std::optional<platform::RegistryValue> value(std::u16string_view name) { return key()->query(name); }

    app::AppSettings load(const app::SettingsDevice& device = handheld) {
        return app::AppSettings::load(*this, device);
    }
};

} // namespace hourwright::test
