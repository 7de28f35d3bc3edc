#pragma once

#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "store/stores.h"
#include "support/memory_registry.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

namespace hourwright::test {

/// A fresh store in a directory of its own, with all databases open.
class StoreFixture : public testing::Test {
protected:
    StoreFixture() { reopen(); }

    /// Closes the store and opens it again, as the next start of the program does.
    void reopen() {
        stores_.reset();
        objects_.reset();
        auto opened = platform::openSqliteObjectStore(file());
        ASSERT_TRUE(opened.store) << opened.reason;
        objects_ = std::move(opened.store);
        stores_ = std::make_unique<store::Stores>(*objects_, *mutex_, registry_);
        ASSERT_TRUE(stores_->open());
    }

    [[nodiscard]] std::filesystem::path file() const { return directory_.path() / "hourwright.db"; }
    [[nodiscard]] store::Stores& stores() { return *stores_; }
    [[nodiscard]] platform::ObjectStore& objects() { return *objects_; }
    [[nodiscard]] MemoryRegistry& registry() { return registry_; }

    /// Runs a change in a transaction of its own; fails the test when it is not committed.
    template<typename Change>
    void change(Change apply) {
        const auto transaction = objects_->begin();
        ASSERT_TRUE(transaction);
        apply(*transaction);
        ASSERT_TRUE(transaction->commit());
    }

private:
    TemporaryDirectory directory_;
    MemoryRegistry registry_;
    std::unique_ptr<platform::NamedMutex> mutex_ =
        platform::makeNamedMutex(directory_.path(), std::string(store::clientIdMutexName));
    std::unique_ptr<platform::ObjectStore> objects_;
    std::unique_ptr<store::Stores> stores_;
};

} // namespace hourwright::test
