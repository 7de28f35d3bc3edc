#pragma once

#include "platform/registry.h"
#include "platform/utf.h"

#include <string>
#include <vector>

namespace hourwright::test {

/// A registry that only notes what is removed and written, in order: "-fClient", "fFlags=53", "fClient=Acme".
class RecordingRegistry : public platform::Registry {
public:
    [[nodiscard]] std::unique_ptr<platform::RegistryKey> open(std::u16string_view) override { return makeKey(); }
    [[nodiscard]] std::unique_ptr<platform::RegistryKey> create(std::u16string_view) override { return makeKey(); }
    bool removeKey(std::u16string_view) override { return false; }

    std::vector<std::string> changes;

private:
    class Batch : public platform::RegistryBatch {
        bool commit() override { return true; }
    };
    class Key : public platform::RegistryKey {
    public:
        explicit Key(RecordingRegistry& registry) : registry_(registry) {}
        [[nodiscard]] std::optional<platform::RegistryValue> query(std::u16string_view) const override { return {}; }
        bool set(const platform::RegistryValue& value) override {
            registry_.changes.push_back(platform::toUtf8(value.name) + '=' + dataText(value));
            return true;
        }
        bool remove(std::u16string_view name) override {
            registry_.changes.push_back('-' + platform::toUtf8(name));
            return true;
        }
        [[nodiscard]] std::vector<platform::RegistryValue> values() const override { return {}; }
        [[nodiscard]] std::unique_ptr<platform::RegistryBatch> batch() override {
            return std::make_unique<Batch>();
        }

    private:
        // A DWORD in decimal, an ASCII string with "|" for each zero unit, other data as their size.
        static std::string dataText(const platform::RegistryValue& value) {
            std::string text;
            std::uint32_t number = 0;
            for (std::size_t i = value.data.size(); i-- > 0 && value.data.size() == 4;)
                number = number << 8 | std::to_integer<std::uint32_t>(value.data[i]);
            if (value.type == platform::RegistryType::dword)
                return std::to_string(number);
            if (value.type == platform::RegistryType::binary)
                return std::to_string(value.data.size()) + " bytes";
            for (std::size_t i = 0; i < value.data.size(); i += 2)
                text += value.data[i] == std::byte{0} ? '|' : static_cast<char>(value.data[i]);
            return text;
        }

        RecordingRegistry& registry_;
    };

    std::unique_ptr<platform::RegistryKey> makeKey() { return std::make_unique<Key>(*this); }
};

} // namespace hourwright::test
