#include "platform/sqlite/connection.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace hourwright::platform {
namespace {

constexpr PropertyId byName{1002, ValueType::text};

// A store of ours with one database of one record, then made over by somebody else.
class CraftedStoreTest : public testing::Test {
protected:
    CraftedStoreTest() {
        const auto store = openSqliteObjectStore(file_).store;
        const auto transaction = store->begin();
        id_ = store->createDatabase(*transaction, {.name = u"Things", .type = 7, .sortProperty = byName, .legend = {}});
        const std::vector values = {PropertyValue::ofText(1002, u"one")};
        static_cast<void>(store->openDatabase(id_, byName)->write(*transaction, ObjectId::none, values));
        static_cast<void>(transaction->commit());
    }

    void craft(const std::string& sql) {
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(file_.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }

    [[nodiscard]] std::string table() const { return "records_" + std::to_string(static_cast<std::uint32_t>(id_)); }

    test::TemporaryDirectory directory_;
    std::filesystem::path file_ = directory_ / "store.db";
    ObjectId id_ = ObjectId::none;
};

TEST_F(CraftedStoreTest, WhatOnlyACraftedFileHasIsRefused) {
    const std::string each[] = {
        "CREATE TRIGGER t AFTER INSERT ON " + table() + " BEGIN DELETE FROM " + table() + "; END",
        "CREATE VIRTUAL TABLE extra USING fts5(text)",
        "ALTER TABLE " + table() + " RENAME TO hidden; CREATE VIEW " + table() + " AS SELECT * FROM hidden",
    };
    for (const std::string& sql : each) {
        const std::filesystem::path clean = directory_ / "clean.db";
        std::filesystem::copy_file(file_, clean, std::filesystem::copy_options::overwrite_existing);
        craft(sql);
        const auto opened = openSqliteObjectStore(file_);
        EXPECT_EQ(opened.store, nullptr) << sql;
        EXPECT_EQ(opened.error, PlatformError::fileCorrupt) << sql;
        std::filesystem::copy_file(clean, file_, std::filesystem::copy_options::overwrite_existing);
    }
}

TEST_F(CraftedStoreTest, WhatHasNoChecksumIsComparedWithWhatElseSaysIt) {
    const std::string each[] = {
        "UPDATE databases SET sort_property = sort_property + 65536", // another field
        "UPDATE databases SET sort_property = sort_property - 1",     // no type that there is
        "DROP INDEX " + table() + "_order",
        "UPDATE volume SET next_id = 1",
        "UPDATE volume SET next_id = 4294967297",
        "INSERT INTO volume SELECT next_id + 1 FROM volume",
    };
    const auto isSound = [this] { return openSqliteObjectStore(file_).store->check([](std::string_view) {}); };
    ASSERT_TRUE(isSound());
    for (const std::string& sql : each) {
        const std::filesystem::path clean = directory_ / "clean.db";
        std::filesystem::copy_file(file_, clean, std::filesystem::copy_options::overwrite_existing);
        craft(sql);
        EXPECT_FALSE(isSound()) << sql;
        std::filesystem::copy_file(clean, file_, std::filesystem::copy_options::overwrite_existing);
    }
}

TEST_F(CraftedStoreTest, WhatIsForOthersIsLeftAlone) {
    craft("CREATE VIEW totals AS SELECT count(*) FROM " + table() + "; CREATE TABLE notes(text); ANALYZE");
    const auto opened = openSqliteObjectStore(file_);
    ASSERT_TRUE(opened.store) << opened.reason;
    EXPECT_EQ(opened.store->openDatabase(id_, byName)->recordCount(), 1U);
    EXPECT_TRUE(opened.store->check([](std::string_view finding) { ADD_FAILURE() << finding; }));
}

// A value that says of itself that it is huge must not be fetched.
TEST_F(CraftedStoreTest, AHugeValueIsAnErrorAndNoLoad) {
    craft("UPDATE " + table() + " SET p1002_text = zeroblob(100000000)");
    const auto opened = openSqliteObjectStore(file_);
    ASSERT_TRUE(opened.store) << opened.reason;
    const auto database = opened.store->openDatabase(id_, byName);
    PropertyBuffer properties;
    EXPECT_FALSE(database->seek(Seek::toBeginning()) != ObjectId::none && database->read(properties));
    EXPECT_NE(opened.store->lastError(), PlatformError::none);
}

TEST_F(CraftedStoreTest, AWriteAheadLogIsTurnedOff) {
    craft("PRAGMA journal_mode=WAL");
    {
        const auto opened = openSqliteObjectStore(file_);
        ASSERT_TRUE(opened.store) << opened.reason;
    }
    EXPECT_FALSE(std::filesystem::exists(file_.string() + "-wal"));
    craft("SELECT 1");
    EXPECT_FALSE(std::filesystem::exists(file_.string() + "-wal"));
}

TEST_F(CraftedStoreTest, AConnectionRunsNothingOfTheSchemaAndAttachesNothing) {
    craft("CREATE TABLE t(a); CREATE TABLE log(a); CREATE VIEW v AS SELECT a FROM t;"
          "CREATE TRIGGER r AFTER INSERT ON t BEGIN INSERT INTO log VALUES (new.a); END");
    sqlite::Connection connection(file_, std::chrono::milliseconds(100));
    ASSERT_TRUE(connection.execute("INSERT INTO t VALUES (1)"));
    sqlite::Statement count(connection, "SELECT count(*) FROM log");
    ASSERT_EQ(count.step(), sqlite::Step::row);
    EXPECT_EQ(count.integer(0), 0);
    count.reset();
    for (const char* const sql :
         {"SELECT a FROM v", "ATTACH ':memory:' AS other", "SELECT load_extension('/tmp/none.so')",
          "PRAGMA writable_schema=ON; UPDATE sqlite_schema SET sql = 'x'", "SELECT length(zeroblob(100000000))"})
        EXPECT_FALSE(connection.execute(sql)) << sql;
}

} // namespace
} // namespace hourwright::platform
