#include "platform/copy_description.h"
#include "platform/nettle/nettle_sha256.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"
#include "platform/sqlite/sqlite_store_copies.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace hourwright::platform {
namespace {

namespace fs = std::filesystem;

constexpr SystemTime monday{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16, .hour = 9, .minute = 5, .second = 7};

bool always() {
    return true;
}

std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void overwrite(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

unsigned modeOf(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

// The place of the only text of that kind in a file.
void flipBitAt(const fs::path& file, const std::string& text) {
    std::string bytes = contents(file);
    const auto place = bytes.find(text);
    ASSERT_NE(place, std::string::npos) << text;
    bytes[place] = static_cast<char>(bytes[place] ^ 1);
    overwrite(file, bytes);
}

class StoreCopiesTest : public testing::Test {
protected:
    StoreCopiesTest() {
        add(u"first record");
        openSqliteRegistry(places_.settings)->create(settingsKey)->writeDword(u"Setting", 7);
    }

    // A store as a program has it open for a moment.
    struct Opened {
        explicit Opened(const fs::path& file) : store(openSqliteObjectStore(file).store) {
            if (!store)
                return;
            if (store->databases().empty()) {
                const auto transaction = store->begin();
                static_cast<void>(store->createDatabase(
                    *transaction, {.name = u"Things", .type = 7, .sortProperty = byName, .legend = {}}));
                static_cast<void>(transaction->commit());
            }
            database = store->openDatabase(store->databases().front().id, byName);
        }
        std::unique_ptr<ObjectStore> store;
        std::unique_ptr<Database> database;
    };

    void add(std::u16string_view text) {
        const Opened opened(places_.records);
        const auto transaction = opened.store->begin();
        const std::vector values = {PropertyValue::ofText(1002, text)};
        ASSERT_NE(opened.database->write(*transaction, ObjectId::none, values), ObjectId::none);
        ASSERT_TRUE(transaction->commit());
    }

    [[nodiscard]] std::uint64_t recordsIn(const fs::path& file) {
        const Opened opened(file);
        return opened.database ? opened.database->recordCount() : 999;
    }

    StoreCopy make(const SystemTime& now = monday) {
        const MadeCopy made = copies_->make(now, always);
        EXPECT_EQ(made.outcome, CopyOutcome::done) << made.reason;
        return made.copy;
    }

    // Names in a folder without the lock.
    [[nodiscard]] static std::vector<std::string> namesIn(const fs::path& folder) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().filename() != ".lock")
                names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

    static constexpr PropertyId byName{1002, ValueType::text};
    test::TemporaryDirectory home_;
    StoreCopyPlaces places_{
        .records = home_ / "hourwright.db", .settings = home_ / "settings.db", .copies = home_ / "state/copies"};
    std::unique_ptr<StoreCopies> copies_ = openStoreCopies(places_);
};

TEST(Sha256, IsTheKnownDigest) {
    const auto digest = makeSha256();
    EXPECT_EQ(digest->finish(), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    const std::string text = "abc";
    digest->add(std::as_bytes(std::span(text).first(1)));
    digest->add(std::as_bytes(std::span(text).subspan(1)));
    EXPECT_EQ(digest->finish(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(CopyName, SaysItsTime) {
    EXPECT_EQ(copyNameAt(monday), "2026-11-16_09-05-07");
    EXPECT_EQ(copyNameAt(monday, 12), "2026-11-16_09-05-07_12");
    for (const char* const name : {"2026-11-16_09-05-07", "2026-11-16_09-05-07_2", "2026-11-16_09-05-07_12"})
        EXPECT_EQ(timeInCopyName(name), monday) << name;
    for (const char* const name : {"", ".new", "2026-11-16", "2026-13-16_09-05-07", "2026-11-16_09-05-07_1",
                                   "2026-11-16_09-05-07x", "2026-11-16 09-05-07", "../2026-11-16_09-05-07"})
        EXPECT_FALSE(timeInCopyName(name)) << name;
}

TEST(CopyDescription, KeepsWhatItSaysAndLeavesRoomForMore) {
    const StoreCopy copy{.name = copyNameAt(monday),
                         .time = monday,
                         .records = 12,
                         .bytes = 4096,
                         .hasSettings = true,
                         .source = {.records = {"1 2 3"}, .settings = {"4 5 6"}}};
    const std::string text = describeCopy(copy);
    const auto read = parseCopyDescription(copy.name, text + "later fact\n");
    ASSERT_TRUE(read);
    EXPECT_EQ(describeCopy(*read), text);
    EXPECT_EQ(read->time, monday);
    for (const std::string& bad : {std::string(), "Hourwright copy 2\n" + text, text + "records twelve\n"})
        EXPECT_FALSE(parseCopyDescription(copy.name, bad)) << bad;
}

TEST_F(StoreCopiesTest, ACopyHoldsTheRecordsAndTheSettingsForTheirOwnerOnly) {
    EXPECT_TRUE(copies_->list().empty());
    const StoreCopy copy = make();
    EXPECT_EQ(copy.name, "2026-11-16_09-05-07");
    EXPECT_EQ(copy.records, 1U);
    EXPECT_EQ(copies_->verify(copy, always), CopyHealth::sound);
    EXPECT_EQ(modeOf(places_.copies), 0700U);
    const fs::path folder = places_.copies / copy.name;
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(namesIn(folder), (std::vector<std::string>{"SHA256SUMS", "about.txt", "hourwright.db", "settings.db"}));
    for (const std::string& name : namesIn(folder))
        EXPECT_EQ(modeOf(folder / name), 0600U) << name;
    EXPECT_EQ(namesIn(places_.copies), std::vector{copy.name});
    EXPECT_EQ(recordsIn(folder / "hourwright.db"), 1U);
    EXPECT_EQ(openSqliteRegistry(folder / "settings.db")->open(settingsKey)->readDword(u"Setting"), 7U);
}

TEST_F(StoreCopiesTest, CopiesOfOneSecondAreListedTheNewestFirst) {
    for (int i = 0; i < 3; ++i)
        make();
    SystemTime sunday = monday;
    sunday.day = 22;
    make(sunday);
    std::vector<std::string> names;
    for (const StoreCopy& copy : copies_->list())
        names.push_back(copy.name);
    EXPECT_EQ(names, (std::vector<std::string>{"2026-11-22_09-05-07", "2026-11-16_09-05-07_3", "2026-11-16_09-05-07_2",
                                               "2026-11-16_09-05-07"}));
    EXPECT_TRUE(copies_->remove(copies_->list()[1]));
    EXPECT_EQ(copies_->list().size(), 3U);
    EXPECT_EQ(namesIn(places_.copies).size(), 3U);
}

TEST_F(StoreCopiesTest, TheStampTellsWhetherAnythingWasWritten) {
    const StoreCopy copy = make();
    EXPECT_EQ(copies_->list().front().source.records, copies_->present().records);
    EXPECT_EQ(copies_->list().front().source.settings, copies_->present().settings);
    add(u"second");
    EXPECT_NE(copy.source.records, copies_->present().records);
    EXPECT_EQ(copy.source.settings, copies_->present().settings);
}

TEST_F(StoreCopiesTest, WhatIsWrittenMeanwhileIsInItAsAWholeOrNotAtAll) {
    std::atomic<bool> stop{false};
    std::atomic<int> written{0};
    std::thread writer([&] {
        while (!stop) {
            add(u"from the other thread");
            ++written;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    });
    while (written < 3)
        std::this_thread::yield();
    const StoreCopy copy = make();
    stop = true;
    writer.join();
    EXPECT_GE(copy.records, 4U);
    EXPECT_LE(copy.records, static_cast<std::uint64_t>(written) + 1);
    EXPECT_EQ(copies_->verify(copy, always), CopyHealth::sound);
}

struct Damage {
    const char* what;
    const char* file;
    const char* text; ///< a bit of it is flipped; null: the file is deleted
};

class DamagedCopyTest : public StoreCopiesTest, public testing::WithParamInterface<Damage> {};

TEST_P(DamagedCopyTest, IsFoundAndNotRestored) {
    const StoreCopy older = make();
    SystemTime later = monday;
    later.hour = 10;
    const StoreCopy copy = make(later);
    const fs::path file = places_.copies / copy.name / GetParam().file;
    if (GetParam().text == nullptr)
        fs::remove(file);
    else
        flipBitAt(file, GetParam().text);
    const std::string before = contents(places_.records);
    EXPECT_EQ(copies_->verify(copy, always), CopyHealth::damaged);
    EXPECT_EQ(copies_->restore(copy, CopyPart::records, later).outcome, RestoreOutcome::copyDamaged);
    EXPECT_EQ(contents(places_.records), before);
    EXPECT_EQ(copies_->verify(older, always), CopyHealth::sound);
}

INSTANTIATE_TEST_SUITE_P(
    All, DamagedCopyTest,
    testing::Values(Damage{"records", "hourwright.db", "first record"}, Damage{"settings", "settings.db", "Setting"},
                    Damage{"digest", "SHA256SUMS", "  hourwright.db"}, Damage{"description", "about.txt", "records"},
                    Damage{"noRecords", "hourwright.db", nullptr}, Damage{"noDigests", "SHA256SUMS", nullptr}),
    [](const auto& test) { return test.param.what; });

TEST_F(StoreCopiesTest, FilesWithoutADigestAreNotTrusted) {
    const StoreCopy copy = make();
    const fs::path file = places_.copies / copy.name / "SHA256SUMS";
    const std::string digests = contents(file);
    for (const char* const name : {"about.txt", "hourwright.db", "settings.db"}) {
        std::string fewer = digests;
        const auto end = fewer.find('\n', fewer.find(name)) + 1;
        fewer.erase(end - 67 - std::string_view(name).size(), 67 + std::string_view(name).size());
        overwrite(file, fewer);
        EXPECT_EQ(copies_->verify(copy, always), CopyHealth::damaged) << fewer;
        for (const CopyPart part : {CopyPart::records, CopyPart::settings})
            EXPECT_EQ(copies_->restore(copy, part, monday).outcome, RestoreOutcome::copyDamaged) << fewer;
    }
    overwrite(file, digests);
    EXPECT_EQ(copies_->verify(copy, always), CopyHealth::sound);
}

TEST_F(StoreCopiesTest, ACopyWithoutADescriptionIsListedApart) {
    const StoreCopy copy = make();
    SystemTime later = monday;
    later.hour = 10;
    const StoreCopy second = make(later);
    overwrite(places_.copies / second.name / "about.txt", "something else");
    overwrite(places_.copies / "2026-11-16_11-00-00", "a file");
    EXPECT_EQ(copies_->list().size(), 1U);
    const auto unreadable = copies_->unreadable();
    ASSERT_EQ(unreadable.size(), 2U);
    EXPECT_EQ(unreadable[0].name, "2026-11-16_11-00-00");
    EXPECT_EQ(unreadable[1].time, later);
    for (const StoreCopy& each : unreadable) {
        EXPECT_EQ(copies_->verify(each, always), CopyHealth::damaged);
        EXPECT_TRUE(copies_->remove(each));
    }
    EXPECT_EQ(namesIn(places_.copies), std::vector{copy.name});
}

// SQLite would write into the copy what such a journal says.
TEST_F(StoreCopiesTest, AJournalBesideACopyIsNotLookedAt) {
    const StoreCopy copy = make();
    const fs::path file = places_.copies / copy.name / "hourwright.db";
    const std::string before = contents(file);
    const pid_t writer = test::inChild([&file]() -> bool {
        sqlite3* connection = nullptr;
        sqlite3_open(file.c_str(), &connection);
        sqlite3_exec(connection, "PRAGMA cache_size=1; BEGIN; CREATE TABLE filler AS SELECT randomblob(500000)",
                     nullptr, nullptr, nullptr);
        _exit(0);
    });
    static_cast<void>(test::succeeded(writer));
    const fs::path journal = fs::path(file).concat("-journal");
    ASSERT_TRUE(fs::exists(journal));
    const std::string inJournal = contents(journal);
    overwrite(file, before);
    EXPECT_EQ(copies_->verify(copy, always), CopyHealth::sound);
    EXPECT_EQ(copies_->restore(copy, CopyPart::records, monday).outcome, RestoreOutcome::done);
    EXPECT_EQ(contents(file), before);
    EXPECT_EQ(contents(journal), inJournal);
    EXPECT_EQ(recordsIn(places_.records), 1U);
}

TEST_F(StoreCopiesTest, PipesLinksAndFoldersInPlaceOfItsFilesDamageACopy) {
    const StoreCopy copy = make();
    const fs::path folder = places_.copies / copy.name;
    for (const std::string& name : namesIn(folder)) {
        fs::rename(folder / name, home_ / "aside");
        const auto isRefused = [&] {
            const bool damaged = copies_->verify(copy, always) == CopyHealth::damaged;
            fs::remove(folder / name);
            return damaged;
        };
        ASSERT_EQ(::mkfifo((folder / name).c_str(), 0600), 0);
        EXPECT_TRUE(isRefused()) << name << " is a pipe";
        fs::create_directory(folder / name);
        EXPECT_TRUE(isRefused()) << name << " is a folder";
        fs::create_symlink(home_ / "aside", folder / name);
        EXPECT_TRUE(isRefused()) << name << " is a link";
        fs::rename(home_ / "aside", folder / name);
    }
    EXPECT_EQ(copies_->verify(copy, always), CopyHealth::sound);
}

TEST_F(StoreCopiesTest, DamagedSettingsAreNotCopied) {
    overwrite(places_.settings, contents(places_.settings).substr(0, 8192));
    EXPECT_FALSE(make().hasSettings);
}

TEST_F(StoreCopiesTest, AFolderInPlaceOfTheRecordsIsPutAside) {
    const StoreCopy copy = make();
    fs::remove(places_.records);
    fs::create_directory(places_.records);
    const RestoredCopy restored = copies_->restore(copy, CopyPart::records, monday);
    ASSERT_EQ(restored.outcome, RestoreOutcome::done);
    EXPECT_TRUE(fs::is_directory(restored.kept));
    EXPECT_EQ(recordsIn(places_.records), 1U);
}

TEST_F(StoreCopiesTest, DamagedRecordsAreNotCopied) {
    make();
    flipBitAt(places_.records, "first record");
    SystemTime later = monday;
    later.hour = 10;
    const MadeCopy made = copies_->make(later, always);
    EXPECT_EQ(made.outcome, CopyOutcome::sourceDamaged);
    EXPECT_EQ(made.error, PlatformError::fileCorrupt);
    EXPECT_EQ(namesIn(places_.copies).size(), 1U);
}

TEST_F(StoreCopiesTest, WithoutRecordsThereIsNothingToCopy) {
    fs::remove(places_.records);
    EXPECT_EQ(copies_->make(monday, always).outcome, CopyOutcome::noSource);
    EXPECT_FALSE(fs::exists(places_.records));
    EXPECT_FALSE(fs::exists(places_.copies));
}

TEST_F(StoreCopiesTest, SettingsThatCannotBeReadDoNotStopIt) {
    overwrite(places_.settings, "no settings");
    const StoreCopy copy = make();
    EXPECT_FALSE(copy.hasSettings);
    EXPECT_EQ(copies_->verify(copy, always), CopyHealth::sound);
    EXPECT_EQ(copies_->restore(copy, CopyPart::settings, monday).outcome, RestoreOutcome::copyDamaged);
}

TEST_F(StoreCopiesTest, WorkThatIsEndedLeavesNothing) {
    for (int looks = 0; looks < 6; ++looks) {
        int left = looks;
        const auto outcome = copies_->make(monday, [&left] { return left-- > 0; }).outcome;
        ASSERT_EQ(outcome, CopyOutcome::cancelled) << looks;
        ASSERT_TRUE(namesIn(places_.copies).empty()) << looks;
    }
}

TEST_F(StoreCopiesTest, LeftoversOfAKilledProgramGo) {
    make();
    for (const char* const name : {".new", ".gone"}) {
        fs::create_directory(places_.copies / name);
        overwrite(places_.copies / name / "hourwright.db", "half");
    }
    for (const char* const name : {"hourwright.db.restoring", "settings.db.restoring"})
        overwrite(home_ / name, "half");
    EXPECT_EQ(copies_->list().size(), 1U);
    make();
    EXPECT_EQ(namesIn(home_.path()), (std::vector<std::string>{"hourwright.db", "settings.db", "state"}));
    EXPECT_EQ(namesIn(places_.copies), (std::vector<std::string>{"2026-11-16_09-05-07", "2026-11-16_09-05-07_2"}));
}

TEST_F(StoreCopiesTest, AFolderThatCannotBeWrittenIsSaidSo) {
    overwrite(home_ / "state", "a file where the folder should be");
    const MadeCopy made = copies_->make(monday, always);
    EXPECT_EQ(made.outcome, CopyOutcome::failed);
    EXPECT_NE(made.error, PlatformError::none);
    EXPECT_NE(made.reason.find(places_.copies.string()), std::string::npos) << made.reason;
    EXPECT_TRUE(copies_->list().empty());
}

TEST_F(StoreCopiesTest, RestoringKeepsThePresentFileAndAllThatBelongsToIt) {
    const StoreCopy copy = make();
    add(u"second");
    const std::string before = contents(places_.records);
    // A database that SQLite would mend with these: they must never meet the restored one.
    for (const char* const ending : {"-wal", "-shm"})
        overwrite(fs::path(places_.records).concat(ending), "old");
    const RestoredCopy restored = copies_->restore(copy, CopyPart::records, monday);
    ASSERT_EQ(restored.outcome, RestoreOutcome::done);
    EXPECT_EQ(restored.kept, home_ / "hourwright.db.replaced-2026-11-16_09-05-07");
    EXPECT_EQ(contents(restored.kept), before);
    EXPECT_EQ(modeOf(places_.records), 0600U);
    for (const char* const ending : {"-journal", "-wal", "-shm", ".restoring"})
        EXPECT_FALSE(fs::exists(fs::path(places_.records).concat(ending))) << ending;
    EXPECT_EQ(recordsIn(places_.records), 1U);
    EXPECT_EQ(copies_->restore(copy, CopyPart::records, monday).kept,
              home_ / "hourwright.db.replaced-2026-11-16_09-05-07_2");
}

// A writer killed in the middle leaves a journal that is to take back what it began in its file, and in no other.
TEST_F(StoreCopiesTest, AJournalOfTheOldFileIsNotAppliedToTheCopy) {
    const StoreCopy copy = make();
    for (int i = 0; i < 5; ++i)
        add(std::u16string(20'000, u'x')); // several pages
    const pid_t writer = test::inChild([this]() -> bool {
        sqlite3* connection = nullptr;
        sqlite3_open(places_.records.c_str(), &connection);
        sqlite3_exec(connection,
                     "PRAGMA cache_size=1; BEGIN; UPDATE volume SET next_id = next_id + 1000;"
                     "CREATE TABLE filler AS SELECT randomblob(500000)",
                     nullptr, nullptr, nullptr);
        _exit(0);
    });
    static_cast<void>(test::succeeded(writer));
    const fs::path journal = fs::path(places_.records).concat("-journal");
    ASSERT_TRUE(fs::exists(journal));
    std::string damaged = contents(places_.records);
    damaged.replace(0, 100, 100, 'x'); // so that nothing can be taken back in it
    overwrite(places_.records, damaged);

    const RestoredCopy restored = copies_->restore(copy, CopyPart::records, monday);
    ASSERT_EQ(restored.outcome, RestoreOutcome::done);
    EXPECT_FALSE(fs::exists(journal));
    EXPECT_EQ(recordsIn(places_.records), 1U);
    const Opened opened(places_.records);
    EXPECT_TRUE(opened.store->check([](std::string_view finding) { ADD_FAILURE() << finding; }));
}

TEST_F(StoreCopiesTest, NothingIsRestoredOverAFileInUse) {
    const StoreCopy copy = make();
    const std::string before = contents(places_.records);
    for (const char* const way : {"BEGIN; SELECT count(*) FROM volume", "BEGIN IMMEDIATE", "BEGIN EXCLUSIVE"}) {
        test::Pipe ready;
        test::Pipe end;
        const pid_t user = test::inChild([&] {
            sqlite3* connection = nullptr;
            sqlite3_open(places_.records.c_str(), &connection);
            sqlite3_exec(connection, way, nullptr, nullptr, nullptr);
            char c = 'x';
            bool well = ::write(ready.input(), &c, 1) == 1;
            end.closeInput();
            return ::read(end.output(), &c, 1) == 0 && well;
        });
        char c = 0;
        ASSERT_EQ(::read(ready.output(), &c, 1), 1);
        const RestoredCopy restored = copies_->restore(copy, CopyPart::records, monday);
        end.closeInput();
        EXPECT_TRUE(test::succeeded(user));
        EXPECT_EQ(restored.outcome, RestoreOutcome::inUse) << way;
        EXPECT_EQ(contents(places_.records), before);
        EXPECT_EQ(namesIn(home_.path()), (std::vector<std::string>{"hourwright.db", "settings.db", "state"})) << way;
    }
}

// Who opened the file before it was replaced must not write into the one that was put aside.
TEST_F(StoreCopiesTest, AWriterOfTheReplacedFileIsRefused) {
    const StoreCopy copy = make();
    const Opened opened(places_.records);
    ASSERT_EQ(copies_->restore(copy, CopyPart::records, monday).outcome, RestoreOutcome::done);
    const auto transaction = opened.store->begin();
    const std::vector values = {PropertyValue::ofText(1002, u"lost")};
    const bool stored = transaction && opened.database->write(*transaction, ObjectId::none, values) != ObjectId::none &&
                        transaction->commit();
    EXPECT_FALSE(stored);
}

TEST_F(StoreCopiesTest, AMissingFileIsRestored) {
    const StoreCopy copy = make();
    fs::remove(places_.records);
    const RestoredCopy restored = copies_->restore(copy, CopyPart::records, monday);
    EXPECT_EQ(restored.outcome, RestoreOutcome::done);
    EXPECT_EQ(restored.kept, fs::path());
    EXPECT_EQ(recordsIn(places_.records), 1U);
}

TEST_F(StoreCopiesTest, SettingsAreRestoredAlone) {
    const StoreCopy copy = make();
    openSqliteRegistry(places_.settings)->open(settingsKey)->writeDword(u"Setting", 8);
    add(u"second");
    ASSERT_EQ(copies_->restore(copy, CopyPart::settings, monday).outcome, RestoreOutcome::done);
    EXPECT_EQ(openSqliteRegistry(places_.settings)->open(settingsKey)->readDword(u"Setting"), 7U);
    EXPECT_EQ(recordsIn(places_.records), 2U);
}

TEST_F(StoreCopiesTest, TwoAtOnceBothGetWhole) {
    const auto inOther = [this] {
        return test::inChild(
            [this] { return openStoreCopies(places_)->make(monday, always).outcome == CopyOutcome::done; });
    };
    std::vector<pid_t> others;
    for (int i = 0; i < 4; ++i)
        others.push_back(inOther());
    for (const pid_t other : others)
        EXPECT_TRUE(test::succeeded(other));
    EXPECT_EQ(copies_->list().size(), 4U);
    for (const StoreCopy& copy : copies_->list())
        EXPECT_EQ(copies_->verify(copy, always), CopyHealth::sound);
}

} // namespace
} // namespace hourwright::platform
