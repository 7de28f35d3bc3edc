#include "platform/sqlite/sqlite_registry.h"

#include "support/child_process.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace hourwright::platform {

namespace {

using test::inChild;
using test::succeeded;

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void overwrite(const std::filesystem::path& file, const std::string& data) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << data;
}

void execute(const std::filesystem::path& file, const char* sql) {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
    sqlite3_close(connection);
}

// A file of several pages.
void fill(const std::filesystem::path& file) {
    const auto registry = openSqliteRegistry(file);
    const auto key = registry->create(settingsKey);
    const auto batch = key->batch();
    for (char16_t name = u'a'; name <= u'z'; ++name)
        key->writeString(std::u16string(1, name), u"value", 200);
}

class SqliteRegistryTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(directory_.path()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

    void makeSettings() {
        const auto key = openSqliteRegistry(file_)->create(settingsKey);
        ASSERT_TRUE(key);
    }

    test::TemporaryDirectory directory_;
    std::filesystem::path file_ = directory_ / "settings.db";
};

TEST_F(SqliteRegistryTest, MakesTheFileWithTheFirstKeyForItsOwnerOnly) {
    const auto registry = openSqliteRegistry(file_);
    EXPECT_FALSE(registry->open(settingsKey));
    EXPECT_TRUE(registry->removeKey(settingsKey));
    EXPECT_EQ(registry->problem(), "");
    EXPECT_EQ(files(), std::vector<std::string>{});

    ASSERT_TRUE(registry->create(settingsKey));
    EXPECT_EQ(files(), std::vector<std::string>{"settings.db"});
    struct stat status {};
    ASSERT_EQ(stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(SqliteRegistryTest, KeepsEverythingForTheNextProcess) {
    {
        const auto registry = openSqliteRegistry(file_);
        const auto key = registry->create(settingsKey);
        key->writeString(u"Text", u"\U0001F600\xD800", 8);
        key->writeDword(u"Number", 5);
        registry->create(u"Empty");
    }
    const auto registry = openSqliteRegistry(file_);
    const auto key = registry->open(settingsKey);
    ASSERT_TRUE(key);
    EXPECT_EQ(key->readString(u"Text", 8), u"\U0001F600\xD800");
    EXPECT_EQ(key->readDword(u"Number"), 5U);
    EXPECT_TRUE(registry->open(u"Empty"));
}

TEST_F(SqliteRegistryTest, FillsAFileThatIsStillEmpty) {
    overwrite(file_, "");
    const auto registry = openSqliteRegistry(file_);
    EXPECT_FALSE(registry->open(settingsKey));
    EXPECT_EQ(registry->problem(), "");
    ASSERT_TRUE(registry->create(settingsKey));
    EXPECT_TRUE(registry->open(settingsKey)->writeDword(u"V", 1));
}

TEST_F(SqliteRegistryTest, LeavesUnusableFilesByteForByte) {
    struct Case {
        const char* what;
        std::function<void(const std::filesystem::path&)> make;
    };
    const auto alter = [](const std::filesystem::path& file, std::function<void(std::string&)> change) {
        fill(file);
        std::string data = contents(file);
        change(data);
        overwrite(file, data);
    };
    const Case cases[] = {
        {"text", [](auto& file) { overwrite(file, std::string(5000, 'x')); }},
        {"short", [](auto& file) { overwrite(file, "SQLite"); }},
        {"other database", [](auto& file) { execute(file, "CREATE TABLE key(id, path)"); }},
        {"other database with a write-ahead log",
         [](auto& file) { execute(file, "PRAGMA journal_mode=WAL; CREATE TABLE key(id, path)"); }},
        {"same tables of another program", [&](auto& file) { alter(file, [](std::string& data) { data[71] = 'h'; }); }},
        {"no version", [&](auto& file) { alter(file, [](std::string& data) { data[63] = 0; }); }},
        {"newer", [&](auto& file) { alter(file, [](std::string& data) { data[63] = 3; }); }},
        {"cut short", [&](auto& file) { alter(file, [](std::string& data) { data.resize(data.size() - 4096); }); }},
        {"damaged table list", [&](auto& file) { alter(file, [](std::string& data) { data[100] = 77; }); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::filesystem::remove(file_);
        c.make(file_);
        const std::string before = contents(file_);
        {
            const auto registry = openSqliteRegistry(file_);
            EXPECT_FALSE(registry->open(settingsKey));
            EXPECT_NE(registry->problem().find("settings.db: "), std::string::npos);
            EXPECT_FALSE(registry->create(settingsKey));
            EXPECT_FALSE(registry->create(u"New"));
            EXPECT_FALSE(registry->removeKey(settingsKey));
        }
        EXPECT_TRUE(contents(file_) == before);
        EXPECT_EQ(files(), std::vector<std::string>{"settings.db"});
    }
}

TEST_F(SqliteRegistryTest, WritesNothingToAFileDamagedFurtherDown) {
    fill(file_);
    std::string data = contents(file_);
    ASSERT_GT(data.size(), 6 * 4096U);
    std::fill(data.end() - 4096, data.end(), '\x55');
    overwrite(file_, data);

    const auto registry = openSqliteRegistry(file_);
    const auto key = registry->open(settingsKey);
    ASSERT_TRUE(key);
    EXPECT_FALSE(key->writeDword(u"a", 1));
    EXPECT_NE(registry->problem(), "");
    EXPECT_FALSE(registry->create(u"New"));
    EXPECT_FALSE(registry->removeKey(settingsKey));
    EXPECT_TRUE(contents(file_) == data);
}

TEST_F(SqliteRegistryTest, SaysWhyAKeyCannotBeMade) {
    const auto registry = openSqliteRegistry(directory_ / "missing" / "settings.db");
    EXPECT_FALSE(registry->create(settingsKey));
    EXPECT_NE(registry->problem(), "");
    EXPECT_FALSE(openSqliteRegistry(directory_.path())->create(settingsKey));
}

TEST_F(SqliteRegistryTest, AWriteThatFindsNoRoomLeavesWhatWas) {
    {
        const auto registry = openSqliteRegistry(file_);
        registry->create(settingsKey)->writeDword(u"Old", 1);
    }
    // A limit on the size of files stands in for the full disk.
    const auto size = static_cast<rlim_t>(std::filesystem::file_size(file_));
    EXPECT_TRUE(succeeded(inChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{.rlim_cur = size, .rlim_max = size};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return false;
        const auto registry = openSqliteRegistry(file_);
        const auto key = registry->open(settingsKey);
        const auto batch = key->batch();
        const std::vector<std::byte> big(3'000'000);
        return key->writeDword(u"Old", 2) && !key->writeBinary(u"Big", big) && !registry->problem().empty() &&
               !key->writeDword(u"Old", 3);
    })));
    const auto registry = openSqliteRegistry(file_);
    EXPECT_EQ(registry->open(settingsKey)->readDword(u"Old"), 1U);
    EXPECT_EQ(registry->open(settingsKey)->values().size(), 1U);
}

TEST_F(SqliteRegistryTest, ProcessesThatWriteAtTheSameTimeLoseNothing) {
    constexpr int writers = 3;
    constexpr std::uint32_t rounds = 10;
    std::vector<pid_t> children;
    for (int writer = 0; writer < writers; ++writer)
        children.push_back(inChild([&] {
            const auto registry = openSqliteRegistry(file_);
            const auto key = registry->create(settingsKey);
            if (!key)
                return false;
            for (std::uint32_t i = 0; i < rounds; ++i) {
                const auto batch = key->batch();
                const std::uint32_t sum = key->readDword(u"Sum").value_or(0);
                std::this_thread::sleep_for(std::chrono::milliseconds(2)); // time for the others to get in between
                if (!key->writeDword(u"Sum", sum + 1))
                    return false;
            }
            return true;
        }));
    for (const pid_t child : children)
        EXPECT_TRUE(succeeded(child));
    const auto registry = openSqliteRegistry(file_);
    EXPECT_EQ(registry->open(settingsKey)->readDword(u"Sum"), writers * rounds);
}

TEST_F(SqliteRegistryTest, SeesWhatAnotherProcessWrites) {
    makeSettings();
    const auto registry = openSqliteRegistry(file_);
    const auto key = registry->open(settingsKey);
    ASSERT_TRUE(key);
    EXPECT_FALSE(key->query(u"V"));
    EXPECT_TRUE(succeeded(inChild([&] {
        const auto other = openSqliteRegistry(file_);
        return other->open(settingsKey)->writeDword(u"V", 3);
    })));
    EXPECT_EQ(key->readDword(u"V"), 3U);
}

TEST_F(SqliteRegistryTest, NothingIsLeftOfABatchWhoseProcessDied) {
    {
        const auto registry = openSqliteRegistry(file_);
        registry->create(settingsKey)->writeDword(u"V", 1);
    }
    const pid_t child = inChild([&] {
        const auto registry = openSqliteRegistry(file_);
        const auto key = registry->open(settingsKey);
        const auto batch = key->batch();
        key->writeDword(u"V", 2);
        kill(getpid(), SIGKILL);
        return true;
    });
    EXPECT_FALSE(succeeded(child));
    const auto registry = openSqliteRegistry(file_);
    const auto key = registry->open(settingsKey);
    EXPECT_EQ(key->readDword(u"V"), 1U);
    EXPECT_TRUE(key->writeDword(u"V", 3));
}

} // namespace

} // namespace hourwright::platform
