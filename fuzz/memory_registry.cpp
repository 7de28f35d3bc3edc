#include "fuzz/memory_registry.h"

#include <algorithm>

namespace hourwright::fuzz {

using platform::RegistryValue;

namespace {

char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

class NoBatch final : public platform::RegistryBatch {
public:
    bool commit() override { return true; }
};

} // namespace

class MemoryRegistryKey final : public platform::RegistryKey {
public:
    explicit MemoryRegistryKey(MemoryRegistry& registry) : registry_(registry) {}

    [[nodiscard]] std::optional<RegistryValue> query(std::u16string_view name) const override {
        const auto found = registry_.find(name);
        return found != registry_.values_.end() ? std::optional(*found) : std::nullopt;
    }
    bool set(const RegistryValue& value) override {
        registry_.set(value);
        return true;
    }
    bool remove(std::u16string_view name) override {
        if (const auto found = registry_.find(name); found != registry_.values_.end())
            registry_.values_.erase(found);
        return true;
    }
    [[nodiscard]] std::vector<RegistryValue> values() const override {
        return {registry_.values_.begin(), registry_.values_.end()};
    }
    [[nodiscard]] std::unique_ptr<platform::RegistryBatch> batch() override { return std::make_unique<NoBatch>(); }

private:
    MemoryRegistry& registry_;
};

std::unique_ptr<platform::RegistryKey> MemoryRegistry::open(std::u16string_view) {
    return exists_ ? std::make_unique<MemoryRegistryKey>(*this) : nullptr;
}

std::unique_ptr<platform::RegistryKey> MemoryRegistry::create(std::u16string_view) {
    exists_ = true;
    return std::make_unique<MemoryRegistryKey>(*this);
}

bool MemoryRegistry::removeKey(std::u16string_view) {
    exists_ = false;
    values_.clear();
    return true;
}

void MemoryRegistry::set(const RegistryValue& value) {
    exists_ = true;
    if (const auto found = find(value.name); found != values_.end())
        *found = value;
    else
        values_.push_back(value);
}

std::deque<RegistryValue>::iterator MemoryRegistry::find(std::u16string_view name) {
    return std::ranges::find_if(
        values_, [name](const RegistryValue& value) { return std::ranges::equal(value.name, name, {}, lower, lower); });
}

} // namespace hourwright::fuzz
