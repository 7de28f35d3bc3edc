#include "platform/sqlite/sqlite_registry.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace hourwright::platform {
namespace {

class SettingsChecksumTest : public testing::Test {
protected:
    SettingsChecksumTest() {
        const auto registry = openSqliteRegistry(file_);
        const auto key = registry->create(settingsKey);
        key->writeString(u"Text", u"first value");
        key->writeDword(u"Number", 5);
    }

    void execute(const std::string& sql) {
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(file_.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }

    // A file as the first version made it.
    void makeOld() { execute("DROP TABLE damaged; ALTER TABLE value DROP COLUMN checksum; PRAGMA user_version = 1"); }

    [[nodiscard]] std::vector<std::string> findings() {
        std::vector<std::string> found;
        const bool sound =
            openSqliteRegistry(file_)->check([&found](std::string_view text) { found.emplace_back(text); });
        EXPECT_EQ(sound, found.empty());
        return found;
    }

    [[nodiscard]] std::optional<std::uint32_t> number() {
        return openSqliteRegistry(file_)->open(settingsKey)->readDword(u"Number");
    }

    test::TemporaryDirectory directory_;
    std::filesystem::path file_ = directory_ / "settings.db";
};

TEST_F(SettingsChecksumTest, EveryDamageOfAValueMakesItAbsentAndIsReported) {
    for (const char* const damage : {"SET data = x'06000000'", "SET data = x'0500000000'", "SET type = 3",
                                     "SET checksum = checksum + 1", "SET checksum = NULL", "SET key = key - 1"}) {
        openSqliteRegistry(file_)->open(settingsKey)->writeDword(u"Number", 5);
        ASSERT_TRUE(findings().empty()) << damage;
        execute(std::string("UPDATE value ") + damage + " WHERE name = 'Number'");
        EXPECT_EQ(number(), std::nullopt) << damage;
        EXPECT_EQ(findings(), std::vector<std::string>{"the value Number is damaged"}) << damage;
        execute("DELETE FROM value WHERE name = 'Number'");
        execute("DELETE FROM damaged");
    }
}

TEST_F(SettingsChecksumTest, TheOtherValuesStayAndTheReasonIsSaid) {
    execute("UPDATE value SET data = x'06000000' WHERE name = 'Number'");
    const auto registry = openSqliteRegistry(file_);
    const auto key = registry->open(settingsKey);
    EXPECT_EQ(key->readString(u"Text", 50), u"first value");
    EXPECT_EQ(key->values().size(), 1U);
    EXPECT_NE(registry->problem().find("the value Number is damaged"), std::string::npos);
}

TEST_F(SettingsChecksumTest, ADamagedValueIsNotForgottenWhenAnotherTakesItsPlace) {
    execute("UPDATE value SET data = x'06000000' WHERE name = 'Number'");
    ASSERT_TRUE(openSqliteRegistry(file_)->open(settingsKey)->writeDword(u"NUMBER", 9));
    EXPECT_EQ(number(), 9U);
    EXPECT_EQ(findings(), std::vector<std::string>{"the value Number is damaged and another was stored in its place"});
    ASSERT_TRUE(openSqliteRegistry(file_)->open(settingsKey)->remove(u"Number"));
    EXPECT_TRUE(findings().empty());
}

TEST_F(SettingsChecksumTest, AFileOfTheFirstVersionIsReadAsItIsAndGetsChecksumsWithTheFirstWrite) {
    makeOld();
    EXPECT_EQ(number(), 5U);
    EXPECT_TRUE(findings().empty());
    const auto before = openSqliteRegistry(file_);
    ASSERT_TRUE(before->open(settingsKey)); // stands open at the old form while another writes
    ASSERT_TRUE(openSqliteRegistry(file_)->open(settingsKey)->writeDword(u"Other", 1));
    EXPECT_EQ(before->open(settingsKey)->readDword(u"Number"), 5U);
    EXPECT_TRUE(before->open(settingsKey)->writeDword(u"Third", 3));
    EXPECT_TRUE(findings().empty());
    execute("UPDATE value SET data = x'06000000' WHERE name = 'Number'");
    EXPECT_EQ(number(), std::nullopt);
    EXPECT_EQ(openSqliteRegistry(file_)->open(settingsKey)->readString(u"Text", 50), u"first value");
    EXPECT_EQ(findings().size(), 1U);
}

} // namespace
} // namespace hourwright::platform
