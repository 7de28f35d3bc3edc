#include "support/memory_registry.h"

#include <algorithm>

namespace hourwright::test {

using platform::RegistryValue;

namespace {

char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

bool sameName(std::u16string_view a, std::u16string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

bool isBelow(std::u16string_view path, std::u16string_view parent) {
    return path.size() > parent.size() && path[parent.size()] == u'\\' &&
           sameName(path.substr(0, parent.size()), parent);
}

} // namespace

class MemoryRegistryBatch final : public platform::RegistryBatch {
public:
    explicit MemoryRegistryBatch(MemoryRegistry& registry) : registry_(registry) {
        ++registry_.batches;
        if (registry_.batchDepth_++ == 0) {
            registry_.batchFailed_ = false;
            before_ = registry_.keys_;
        }
    }
    ~MemoryRegistryBatch() override { commit(); }

    bool commit() override {
        if (!open_)
            return stored_;
        open_ = false;
        stored_ = !registry_.batchFailed_ && !registry_.failCommit;
        if (--registry_.batchDepth_ == 0 && !stored_)
            registry_.keys_ = before_;
        return stored_;
    }

private:
    bool open_ = true;
    bool stored_ = false;
    MemoryRegistry& registry_;
    std::vector<MemoryRegistry::Key> before_;
};

class MemoryRegistryKey : public platform::RegistryKey {
public:
    MemoryRegistryKey(MemoryRegistry& registry, std::u16string_view path) : registry_(registry), path_(path) {}

    [[nodiscard]] std::optional<RegistryValue> query(std::u16string_view name) const override {
        for (RegistryValue& value : values())
            if (sameName(value.name, name))
                return value;
        return std::nullopt;
    }

    bool set(const RegistryValue& value) override {
        auto* const key = keyForWriting();
        if (key == nullptr)
            return false;
        const auto old = std::ranges::find_if(key->values, [&](auto& v) { return sameName(v.name, value.name); });
        if (old == key->values.end()) {
            key->values.push_back(value);
        } else {
            old->type = value.type;
            old->data = value.data;
        }
        return true;
    }

    bool remove(std::u16string_view name) override {
        auto* const key = keyForWriting();
        if (key == nullptr)
            return false;
        std::erase_if(key->values, [&](auto& v) { return sameName(v.name, name); });
        return true;
    }

    [[nodiscard]] std::vector<RegistryValue> values() const override {
        const auto* const key = registry_.find(path_);
        return key == nullptr ? std::vector<RegistryValue>{} : key->values;
    }

    [[nodiscard]] std::unique_ptr<platform::RegistryBatch> batch() override {
        return std::make_unique<MemoryRegistryBatch>(registry_);
    }

private:
    MemoryRegistry::Key* keyForWriting() {
        auto* const key = registry_.find(path_);
        if (registry_.failWrites || key == nullptr || (registry_.batchDepth_ > 0 && registry_.batchFailed_)) {
            registry_.batchFailed_ = true;
            return nullptr;
        }
        ++registry_.writes;
        return key;
    }

    MemoryRegistry& registry_;
    std::u16string path_;
};

MemoryRegistry::Key* MemoryRegistry::find(std::u16string_view path) {
    const auto found = std::ranges::find_if(keys_, [&](const Key& key) { return sameName(key.path, path); });
    return found == keys_.end() ? nullptr : &*found;
}

std::unique_ptr<platform::RegistryKey> MemoryRegistry::open(std::u16string_view path) {
    if (failOpen || find(path) == nullptr)
        return nullptr;
    return std::make_unique<MemoryRegistryKey>(*this, path);
}

std::unique_ptr<platform::RegistryKey> MemoryRegistry::create(std::u16string_view path) {
    if (failCreate || (failWrites && find(path) == nullptr))
        return nullptr;
    for (std::size_t end = 0; end != std::u16string_view::npos;) {
        end = path.find(u'\\', end == 0 ? 0 : end + 1);
        if (find(path.substr(0, end)) == nullptr)
            keys_.push_back({.path = std::u16string(path.substr(0, end)), .values = {}});
    }
    return std::make_unique<MemoryRegistryKey>(*this, path);
}

bool MemoryRegistry::removeKey(std::u16string_view path) {
    if (failWrites)
        return false;
    std::erase_if(keys_, [&](const Key& key) { return sameName(key.path, path) || isBelow(key.path, path); });
    return true;
}

} // namespace hourwright::test
