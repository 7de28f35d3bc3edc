#pragma once

#include "platform/registry.h"

#include <deque>

namespace hourwright::fuzz {

/// One key of a registry in memory, which every path leads to. Nothing fails, so a batch has nothing to take back. It
/// must outlive its keys.
class MemoryRegistry final : public platform::Registry {
public:
    [[nodiscard]] std::unique_ptr<platform::RegistryKey> open(std::u16string_view path) override;
    [[nodiscard]] std::unique_ptr<platform::RegistryKey> create(std::u16string_view path) override;
    bool removeKey(std::u16string_view) override;

    void set(const platform::RegistryValue& value);
    [[nodiscard]] const std::deque<platform::RegistryValue>& values() const { return values_; }

private:
    friend class MemoryRegistryKey;

    [[nodiscard]] std::deque<platform::RegistryValue>::iterator find(std::u16string_view name);

    bool exists_ = false;
    std::deque<platform::RegistryValue> values_;
};

} // namespace hourwright::fuzz
