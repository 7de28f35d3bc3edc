#include "cli/command_runner.h"
#include "platform/posix/unix_instance_channel.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace hourwright::test {

namespace {

namespace fs = std::filesystem;

class StoreCopiesCommandTest : public testing::Test {
protected:
    StoreCopiesCommandTest() {
        add("Acme");
        copy_ = runner_.run({"store", "copy"}).out;
        copy_.pop_back();
        add("Bolt");
    }

    void add(const char* client) { EXPECT_EQ(runner_.run({"client", "add", client}).exitCode, 0); }
    [[nodiscard]] std::string clients() { return runner_.run({"client", "list", "--json"}).out; }
    void damage(const fs::path& file) { std::fstream(file, std::ios::in | std::ios::out) << "no database at all"; }
    [[nodiscard]] fs::path records() { return runner_.home() / "hourwright.db"; }

    CommandRunner runner_;
    std::string copy_;
};

TEST_F(StoreCopiesCommandTest, ADamagedStoreIsSaidSoWithTheWayOutOfIt) {
    damage(records());
    const auto refused = runner_.run({"client", "list"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.err.starts_with("Hourwright is unable to open the database!\n")) << refused.err;
    EXPECT_NE(refused.err.find("'hwctl store restore'"), std::string::npos) << refused.err;

    const auto restored = runner_.run({"store", "restore", "--yes"});
    EXPECT_EQ(restored.exitCode, 0) << restored.err;
    EXPECT_EQ(restored.err, "");
    const fs::path kept = restored.out.substr(0, restored.out.size() - 1);
    EXPECT_EQ(kept.parent_path(), runner_.home());
    EXPECT_TRUE(fs::exists(kept)) << kept;
    EXPECT_NE(clients().find("Acme"), std::string::npos);
    EXPECT_EQ(clients().find("Bolt"), std::string::npos);
    EXPECT_EQ(runner_.run({"store", "check"}).exitCode, 0);
}

// To make an empty store would hide that the records are gone.
TEST_F(StoreCopiesCommandTest, RecordsThatAreGoneAreNotMadeAnewUnasked) {
    fs::resize_file(records(), 0);
    EXPECT_EQ(runner_.run({"client", "list"}).exitCode, 1);
    EXPECT_EQ(fs::file_size(records()), 0U);
    fs::remove(records());
    const std::vector<std::vector<std::string>> commands{
        {"client", "list"}, {"client", "add", "Cold", "--yes"}, {"store", "check"}, {"store", "copy"}};
    for (const auto& command : commands) {
        const auto refused = runner_.run({command.begin(), command.end()});
        EXPECT_EQ(refused.exitCode, 1) << command.back();
        EXPECT_EQ(refused.out, "");
        EXPECT_TRUE(refused.err.starts_with("The file of the records is not there any more, but copies of it are.\n"))
            << refused.err;
        EXPECT_NE(refused.err.find("'hwctl store restore'"), std::string::npos) << refused.err;
        EXPECT_NE(refused.err.find((runner_.home() / "copies").string()), std::string::npos) << refused.err;
        EXPECT_FALSE(fs::exists(records()));
    }
    const auto restored = runner_.run({"store", "restore", "--yes"});
    EXPECT_EQ(restored.exitCode, 0) << restored.err;
    EXPECT_NE(clients().find("Acme"), std::string::npos);

    fs::remove(records());
    fs::remove_all(runner_.home() / "copies");
    const auto fresh = runner_.run({"client", "list"});
    EXPECT_EQ(fresh.exitCode, 0);
    EXPECT_EQ(fresh.err, "");
}

TEST_F(StoreCopiesCommandTest, TheNewestSoundOneIsTakenAndDamagedOnesAreNamed) {
    ASSERT_EQ(runner_.run({"store", "copy", "--now", "2099-01-01 00:00:00"}).exitCode, 0);
    damage(runner_.home() / "copies/2099-01-01_00-00-00/hourwright.db");
    const auto listed = runner_.run({"store", "copies", "--verify", "--json"});
    EXPECT_EQ(listed.exitCode, 1);
    EXPECT_NE(listed.out.find("\"sound\":false"), std::string::npos) << listed.out;
    EXPECT_NE(listed.out.find("\"sound\":true"), std::string::npos) << listed.out;
    EXPECT_EQ(runner_.run({"store", "restore", "2099-01-01_00-00-00", "--yes"}).err,
              "This copy is damaged. It was not restored.\n");
    EXPECT_NE(clients().find("Bolt"), std::string::npos);
    EXPECT_EQ(runner_.run({"store", "restore", "--yes"}).exitCode, 0);
    EXPECT_EQ(clients().find("Bolt"), std::string::npos);
}

TEST_F(StoreCopiesCommandTest, ACopyWithoutADescriptionIsNamedToo) {
    std::ofstream(runner_.home() / "copies" / copy_ / "about.txt") << "something else";
    const auto listed = runner_.run({"store", "copies"});
    EXPECT_EQ(listed.exitCode, 1);
    EXPECT_NE(listed.out.find(copy_), std::string::npos) << listed.out;
    EXPECT_NE(listed.out.find("damaged"), std::string::npos) << listed.out;
    EXPECT_NE(runner_.run({"store", "copies", "--json"}).out.find("\"sound\":false"), std::string::npos);
    EXPECT_EQ(runner_.run({"store", "restore", copy_, "--yes"}).err, "This copy is damaged. It was not restored.\n");
    EXPECT_EQ(runner_.run({"store", "restore", "--yes"}).exitCode, 1);
}

TEST_F(StoreCopiesCommandTest, DamagedSettingsAreNoReasonToGoBackWithTheRecords) {
    ASSERT_EQ(runner_.run({"registry", "set", "Own", "dword:1"}).exitCode, 0);
    ASSERT_EQ(runner_.run({"store", "copy", "--now", "2099-01-01 00:00:00"}).exitCode, 0);
    ASSERT_EQ(runner_.run({"store", "copy", "--now", "2099-01-02 00:00:00"}).exitCode, 0);
    fs::remove(runner_.home() / "copies/2099-01-02_00-00-00/settings.db");
    damage(runner_.home() / "settings.db");
    const auto checked = runner_.run({"store", "check"});
    EXPECT_EQ(checked.exitCode, 1);
    EXPECT_NE(checked.err.find("'hwctl store restore --settings'"), std::string::npos) << checked.err;
    EXPECT_EQ(runner_.run({"store", "restore", "--settings", "--yes"}).exitCode, 0);
    EXPECT_EQ(runner_.run({"registry", "get", "Own"}).out, "1\n");
    EXPECT_NE(clients().find("Bolt"), std::string::npos);
}

TEST_F(StoreCopiesCommandTest, NothingIsRestoredWhileTheWindowIsOpen) {
    const auto channel = platform::makeInstanceChannel(runner_.home() / "runtime");
    const auto window = channel->claim();
    ASSERT_EQ(window.claim, platform::Claim::first);
    const auto result = runner_.run({"store", "restore", copy_, "--yes"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "The records are in use by another program. Close it and try again.\nIts window is open.\n");
    EXPECT_NE(clients().find("Bolt"), std::string::npos);
}

TEST_F(StoreCopiesCommandTest, SettingsComeBackAlone) {
    ASSERT_EQ(runner_.run({"registry", "set", "Own", "dword:1"}).exitCode, 0);
    ASSERT_EQ(runner_.run({"store", "copy", "--now", "2099-01-01 00:00:00"}).exitCode, 0);
    ASSERT_EQ(runner_.run({"registry", "set", "Own", "dword:2"}).exitCode, 0);
    add("Cobra");
    EXPECT_EQ(runner_.run({"store", "restore", "2099-01-01_00-00-00", "--settings", "--yes"}).exitCode, 0);
    EXPECT_EQ(runner_.run({"registry", "get", "Own"}).out, "1\n");
    EXPECT_NE(clients().find("Cobra"), std::string::npos);
}

// Not the process's mask makes the files private but each of them when it is made.
TEST(FileModes, WhatThePassingOfCommandsLeavesBelongsToItsOwnerAlone) {
    const mode_t before = ::umask(0);
    CommandRunner runner;
    const std::vector<std::vector<std::string>> commands = {
        {"client", "add", "Acme"},
        {"registry", "set", "Own", "dword:1"},
        {"entry", "add", "--client", "Acme", "--task", "T", "--duration", "1"},
        {"export", "csv", (runner.home() / "all.csv").string(), "--day"},
        {"store", "copy"}};
    for (const auto& command : commands)
        EXPECT_EQ(runner.run(command).exitCode, 0) << command.front();
    ::umask(before);
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(runner.home())) {
        const auto mode = static_cast<unsigned>(entry.status().permissions()) & 0777U;
        EXPECT_EQ(mode, entry.is_directory() ? 0700U : 0600U) << entry.path();
        files += entry.is_directory() ? 0 : 1;
    }
    EXPECT_GE(files, 7);
}

} // namespace

} // namespace hourwright::test
