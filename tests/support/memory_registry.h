#pragma once

#include "platform/registry.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::test {

/// A registry in memory whose operations can be made to fail. It must outlive its keys.
class MemoryRegistry : public platform::Registry {
public:
    [[nodiscard]] std::unique_ptr<platform::RegistryKey> open(std::u16string_view path) override;
    [[nodiscard]] std::unique_ptr<platform::RegistryKey> create(std::u16string_view path) override;
    bool removeKey(std::u16string_view path) override;

    bool failOpen = false;
    bool failCreate = false;
    bool failWrites = false;
    bool failCommit = false; ///< a batch cannot be stored at its end

    /// Number of values stored or removed so far, failed attempts not counted.
    int writes = 0;
    /// Number of batches begun.
    int batches = 0;

private:
    friend class MemoryRegistryKey;
    friend class MemoryRegistryBatch;

    struct Key {
        std::u16string path;
        std::vector<platform::RegistryValue> values;
    };

    Key* find(std::u16string_view path);

    std::vector<Key> keys_;
    int batchDepth_ = 0;
    bool batchFailed_ = false;
};

} // namespace hourwright::test
