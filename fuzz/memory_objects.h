#pragma once

#include "platform/object_store.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace hourwright::fuzz {

/// A property database of one record after another, in memory: enough to write a record and to read it back. Databases
/// are those of their first look-up; nothing is sorted, undone or refused for other reasons than those of the contract.
class MemoryObjects final : public platform::ObjectStore {
public:
    /// Forgets all records.
    void clear() { records_.clear(); }

    [[nodiscard]] std::vector<platform::DatabaseInfo> databases(std::optional<std::uint32_t> type) override;
    platform::ObjectId createDatabase(platform::Transaction&, const platform::DatabaseDefinition& definition) override;
    [[nodiscard]] bool deleteDatabase(platform::Transaction&, platform::ObjectId) override { return false; }
    [[nodiscard]] std::unique_ptr<platform::Database> openDatabase(platform::ObjectId id,
                                                                   platform::PropertyId sortProperty) override;
    using ObjectStore::begin;
    [[nodiscard]] std::unique_ptr<platform::Transaction> begin(const platform::ChangeLabel&) override;
    [[nodiscard]] platform::History& history() override;
    [[nodiscard]] std::unique_ptr<platform::Snapshot> snapshot() override;
    [[nodiscard]] bool check(const std::function<void(std::string_view)>&) override { return true; }
    [[nodiscard]] std::optional<std::uint64_t> changesByOthers() override { return 0; }
    void waitForOthers(bool) override {}
    [[nodiscard]] bool isReplaced() override { return false; }
    [[nodiscard]] bool reopen() override { return false; }
    [[nodiscard]] platform::PlatformError lastError() const override { return error_; }

private:
    friend class MemoryDatabase;

    struct Value {
        platform::PropertyId id;
        std::uint64_t number = 0;
        std::string utf8;
        std::vector<std::byte> blob;
    };
    using Record = std::vector<Value>;

    std::vector<platform::DatabaseInfo> databases_;
    std::map<platform::ObjectId, Record> records_;
    std::uint32_t lastId_ = 0;
    platform::PlatformError error_ = platform::PlatformError::none;
};

} // namespace hourwright::fuzz
