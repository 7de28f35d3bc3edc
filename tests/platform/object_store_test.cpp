#include "platform/sqlite/sqlite_object_store.h"
#include "support/temporary_directory.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>

namespace hourwright::platform {
namespace {

constexpr PropertyId byDate{1001, ValueType::fileTime};
constexpr PropertyId byName{1002, ValueType::text};

class ObjectStoreTest : public testing::Test {
protected:
    ObjectStoreTest() { open(); }

    void open() {
        database_.reset();
        store_.reset();
        auto opened = openSqliteObjectStore(file());
        ASSERT_TRUE(opened.store) << opened.reason;
        store_ = std::move(opened.store);
    }

    void makeDatabase(PropertyId sort) {
        const auto transaction = store_->begin();
        ASSERT_TRUE(transaction);
        const ObjectId id =
            store_->createDatabase(*transaction, {.name = u"Things", .type = 7, .sortProperty = sort, .legend = {}});
        ASSERT_NE(id, ObjectId::none);
        ASSERT_TRUE(transaction->commit());
        database_ = store_->openDatabase(id, sort);
        ASSERT_TRUE(database_);
    }

    ObjectId write(ObjectId id, std::vector<PropertyValue> properties) {
        const auto transaction = store_->begin();
        const ObjectId written = database_->write(*transaction, id, properties);
        return transaction->commit() ? written : ObjectId::none;
    }
    ObjectId add(std::uint64_t date) { return write(ObjectId::none, {PropertyValue::ofFileTime(1001, {date})}); }
    ObjectId addUndated() { return write(ObjectId::none, {PropertyValue::ofUi2(5, 1)}); }

    std::vector<ObjectId> walk(Seek first, std::int32_t step = 1) {
        std::vector<ObjectId> ids;
        for (ObjectId id = database_->seek(first); id != ObjectId::none; id = database_->seek(Seek::fromCurrent(step)))
            ids.push_back(id);
        return ids;
    }

    [[nodiscard]] std::filesystem::path file() const { return directory_.path() / "store.db"; }

    test::TemporaryDirectory directory_;
    std::unique_ptr<ObjectStore> store_;
    std::unique_ptr<Database> database_;
};

PropertyValue date(std::uint64_t ticks) {
    return PropertyValue::ofFileTime(1001, {ticks});
}

TEST_F(ObjectStoreTest, SeeksInSortOrderWithUndatedRecordsLast) {
    makeDatabase(byDate);
    const ObjectId late = add(300);
    const ObjectId none = addUndated();
    const ObjectId early = add(100);
    const ObjectId middle = add(200);
    const ObjectId middleAgain = add(200);
    const std::vector order = {early, middle, middleAgain, late, none};

    struct Case {
        const char* name;
        Seek seek;
        ObjectId expected;
    };
    const std::vector<Case> cases = {
        {"beginning", Seek::toBeginning(), early},
        {"third", Seek::toBeginning(2), middleAgain},
        {"behind the last", Seek::toBeginning(5), ObjectId::none},
        {"end", Seek::toEnd(), none},
        {"last but one", Seek::toEnd(1), late},
        {"before the first", Seek::toEnd(5), ObjectId::none},
        {"id", Seek::toId(middle), middle},
        {"unknown id", Seek::toId(static_cast<ObjectId>(99)), ObjectId::none},
        {"first equal", Seek::toFirstEqual(date(200)), middle},
        {"no equal", Seek::toFirstEqual(date(250)), ObjectId::none},
        {"greater", Seek::toGreater(date(200)), late},
        {"greater than all", Seek::toGreater(date(300)), ObjectId::none},
        {"greater than nothing", Seek::toGreater(date(0)), early},
        {"key of another property", Seek::toFirstEqual(PropertyValue::ofUi2(5, 1)), ObjectId::none},
    };
    for (const bool underSnapshot : {false, true}) {
        const auto snapshot = underSnapshot ? store_->snapshot() : nullptr;
        for (const Case& c : cases) {
            EXPECT_EQ(database_->seek(c.seek), c.expected) << c.name;
            EXPECT_EQ(store_->lastError(),
                      c.expected == ObjectId::none ? PlatformError::noMoreItems : PlatformError::none)
                << c.name;
        }
        EXPECT_EQ(walk(Seek::toBeginning()), order);
        EXPECT_EQ(walk(Seek::toEnd(), -1), std::vector(order.rbegin(), order.rend()));
        EXPECT_EQ(walk(Seek::toGreater(date(100))), std::vector(order.begin() + 1, order.end()));
        EXPECT_EQ(walk(Seek::toId(middleAgain), -1), (std::vector{middleAgain, middle, early}));
        EXPECT_EQ(walk(Seek::toBeginning(), 2), (std::vector{early, middleAgain, none}));
    }
}

TEST_F(ObjectStoreTest, NextEqualStopsAtTheFirstOtherValue) {
    makeDatabase(byDate);
    add(1);
    const ObjectId a = add(2);
    add(3);
    const ObjectId b = add(2);
    EXPECT_EQ(database_->seek(Seek::toFirstEqual(date(2))), a);
    EXPECT_EQ(database_->seek(Seek::toNextEqual(date(2))), b);
    EXPECT_EQ(database_->seek(Seek::toNextEqual(date(2))), ObjectId::none);
    EXPECT_EQ(store_->lastError(), PlatformError::noMoreItems);
}

TEST_F(ObjectStoreTest, SortsTextsByCodePointAndFindsThemExactly) {
    makeDatabase(byName);
    std::map<std::u16string, ObjectId> ids;
    for (const std::u16string name : {u"acme", u"Acme", u"Ärzte", u"", u"Acme Corp"})
        ids[name] = write(ObjectId::none, {PropertyValue::ofText(1002, name)});
    EXPECT_EQ(walk(Seek::toBeginning()),
              (std::vector{ids[u""], ids[u"Acme"], ids[u"Acme Corp"], ids[u"acme"], ids[u"Ärzte"]}));
    EXPECT_EQ(database_->seek(Seek::toFirstEqual(PropertyValue::ofText(1002, u"acme"))), ids[u"acme"]);
    EXPECT_EQ(database_->seek(Seek::toFirstEqual(PropertyValue::ofText(1002, u"ACME"))), ObjectId::none);
}

TEST_F(ObjectStoreTest, KeepsEveryValueAndTheOrderOfProperties) {
    makeDatabase(byDate);
    const std::u16string lone = {u'a', char16_t{0xD800}, u'b', char16_t{0xDFFF}};
    const std::u16string megabyte(1 << 20, u'ü');
    const std::vector bytes = {std::byte{0}, std::byte{255}, std::byte{10}};
    const std::vector<PropertyValue> written = {
        PropertyValue::ofText(1002, lone),       date(std::numeric_limits<std::int64_t>::max()),
        PropertyValue::ofUi4(1008, 0xFFFF'FFFF), PropertyValue::ofUi2(1006, 0xFFFF),
        PropertyValue::ofBoolean(1009, true),    PropertyValue::ofBlob(1012, bytes),
        PropertyValue::ofText(1003, megabyte),   PropertyValue::ofText(1004, u""),
        PropertyValue::ofUi4(1006, 7), // same field, another type: another property
        PropertyValue::ofText(1005, u"😀\r\n"),
    };
    const ObjectId id = write(ObjectId::none, written);
    ASSERT_NE(id, ObjectId::none);
    open();
    database_ = store_->openDatabase(store_->databases().front().id, byDate);
    ASSERT_EQ(database_->seek(Seek::toId(id)), id);
    PropertyBuffer read;
    ASSERT_TRUE(database_->read(read));
    ASSERT_EQ(read.values().size(), written.size());
    for (std::size_t i = 0; i < written.size(); ++i) {
        const PropertyValue& value = read.values()[i];
        EXPECT_EQ(value.id, written[i].id) << i;
        EXPECT_EQ(value.number, written[i].number) << i;
        EXPECT_TRUE(value.text == written[i].text) << i;
        EXPECT_TRUE(std::ranges::equal(value.blob, written[i].blob)) << i;
    }
}

TEST_F(ObjectStoreTest, UpdatesInPlaceAppendsAndDeletes) {
    makeDatabase(byDate);
    const ObjectId id = write(ObjectId::none, {PropertyValue::ofText(1002, u"a"), date(5), PropertyValue::ofUi2(7, 1),
                                               PropertyValue::ofText(1003, u"gone")});
    ASSERT_EQ(
        write(id, {PropertyValue::ofText(1005, u"new"), date(9), PropertyValue::deletionOf({1003, ValueType::text}),
                   PropertyValue::deletionOf({1099, ValueType::text}), PropertyValue::ofText(1002, u"b\0c")}),
        id);
    PropertyBuffer read;
    ASSERT_TRUE(database_->read(read)); // the written record is the current one
    std::vector<std::uint16_t> fields;
    for (const PropertyValue& value : read.values())
        fields.push_back(value.id.number());
    EXPECT_EQ(fields, (std::vector<std::uint16_t>{1002, 1001, 7, 1005}));
    EXPECT_EQ(read.values()[0].text, u"b");
    EXPECT_EQ(database_->seek(Seek::toFirstEqual(date(5))), ObjectId::none);
    EXPECT_EQ(database_->seek(Seek::toFirstEqual(date(9))), id);

    const std::array wanted = {PropertyId{1005, ValueType::text}, PropertyId{4711, ValueType::text}, byDate};
    ASSERT_TRUE(database_->read(read, wanted));
    ASSERT_EQ(read.values().size(), 2U);
    EXPECT_EQ(read.values()[0].text, u"new");
    EXPECT_EQ(read.values()[1].number, 9U);
}

TEST_F(ObjectStoreTest, RefusesWhatAPropertyCannotHold) {
    makeDatabase(byDate);
    const ObjectId id = add(1);
    PropertyValue unknownType = date(1);
    unknownType.id = PropertyId(0x03E9'0003);
    PropertyValue wideUi2 = PropertyValue::ofUi2(1006, 0);
    wideUi2.number = 0x1'0000;
    PropertyValue wideUi4 = PropertyValue::ofUi4(1008, 0);
    wideUi4.number = 0x1'0000'0000;
    PropertyValue two = PropertyValue::ofBoolean(1009, true);
    two.number = 2;
    const auto transaction = store_->begin();
    for (const PropertyValue& value : {unknownType, wideUi2, wideUi4, two, date(std::uint64_t{1} << 63)}) {
        EXPECT_EQ(database_->write(*transaction, ObjectId::none, std::array{value}), ObjectId::none);
        EXPECT_EQ(store_->lastError(), PlatformError::invalidParameter);
    }
    EXPECT_EQ(database_->write(*transaction, static_cast<ObjectId>(4711), std::array{date(3)}), ObjectId::none);
    EXPECT_EQ(store_->lastError(), PlatformError::invalidParameter);
    EXPECT_TRUE(transaction->commit());
    EXPECT_EQ(walk(Seek::toBeginning()), std::vector{id});
}

TEST_F(ObjectStoreTest, RollsBackRecordsDatabasesAndNewColumns) {
    makeDatabase(byDate);
    const ObjectId kept = add(1);
    {
        const auto transaction = store_->begin();
        EXPECT_NE(database_->write(*transaction, ObjectId::none, std::array{PropertyValue::ofText(77, u"x")}),
                  ObjectId::none);
        EXPECT_EQ(database_->seek(Seek::toId(kept)), kept);
        EXPECT_TRUE(database_->deleteCurrent(*transaction));
        EXPECT_NE(store_->createDatabase(*transaction, {.name = u"Other", .type = 8, .sortProperty = byName}),
                  ObjectId::none);
    }
    EXPECT_EQ(walk(Seek::toBeginning()), std::vector{kept});
    EXPECT_EQ(store_->databases().size(), 1U);
    const ObjectId again = write(ObjectId::none, {PropertyValue::ofText(77, u"y")});
    PropertyBuffer read;
    ASSERT_TRUE(database_->read(read));
    EXPECT_EQ(read.values().front().text, u"y");
    EXPECT_EQ(walk(Seek::toBeginning()), (std::vector{kept, again}));
}

TEST_F(ObjectStoreTest, NeverGivesAnIdTwice) {
    makeDatabase(byDate);
    const ObjectId first = add(1);
    ASSERT_EQ(database_->seek(Seek::toId(first)), first);
    {
        const auto transaction = store_->begin();
        ASSERT_TRUE(database_->deleteCurrent(*transaction));
        ASSERT_TRUE(transaction->commit());
    }
    open();
    database_ = store_->openDatabase(store_->databases().front().id, byDate);
    EXPECT_GT(add(1), first);
}

TEST_F(ObjectStoreTest, DeletingInAWalkGoesOnBehindTheDeleted) {
    makeDatabase(byDate);
    for (std::uint64_t i = 1; i <= 9; ++i)
        add(i / 3); // groups of equal dates
    const auto transaction = store_->begin();
    int seen = 0;
    for (ObjectId id = database_->seek(Seek::toBeginning()); id != ObjectId::none;
         id = database_->seek(Seek::fromCurrent(1)))
        if (++seen % 2 == 0) {
            ASSERT_TRUE(database_->deleteCurrent(*transaction));
        }
    EXPECT_EQ(seen, 9);
    ASSERT_TRUE(transaction->commit());
    EXPECT_EQ(walk(Seek::toBeginning()).size(), 5U);
}

TEST_F(ObjectStoreTest, UpdatingInAWalkVisitsEachRecordOnce) {
    makeDatabase(byDate);
    for (std::uint64_t i = 1; i <= 100; ++i)
        add(i / 7);
    const auto transaction = store_->begin();
    std::map<ObjectId, int> visits;
    PropertyBuffer read;
    for (ObjectId id = database_->seek(Seek::toBeginning()); id != ObjectId::none;
         id = database_->seek(Seek::fromCurrent(1))) {
        ++visits[id];
        ASSERT_TRUE(database_->read(read));
        ASSERT_EQ(database_->write(*transaction, id, std::array{PropertyValue::ofUi2(9, 1)}), id);
        ASSERT_TRUE(database_->read(read)); // the new state, not the row that the walk stood on
        EXPECT_NE(read.find({9, ValueType::ui2}), nullptr);
    }
    EXPECT_EQ(visits.size(), 100U);
}

// Every seek against a plain model, with random records, updates and deletions.
// The walk stands on the old row while the record is written: it must neither be lost nor be read again.
TEST_F(ObjectStoreTest, AWalkReadsAndChangesWhatItHasJustWritten) {
    makeDatabase(byDate);
    const PropertyId text{7, ValueType::text};
    for (const std::uint64_t ticks : {10U, 20U, 30U})
        write(ObjectId::none, {date(ticks), PropertyValue::ofText(7, u"before")});
    const auto transaction = store_->begin();
    const auto other = store_->openDatabase(database_->id(), byDate);
    PropertyBuffer record;
    for (ObjectId id = database_->seek(Seek::toBeginning()); id != ObjectId::none;
         id = database_->seek(Seek::fromCurrent(1))) {
        // A property that the table has no column for yet, then one that another handle has written meanwhile.
        ASSERT_EQ(database_->write(*transaction, id, std::vector{PropertyValue::ofUi4(99, 1)}), id);
        ASSERT_EQ(other->write(*transaction, id, std::vector{PropertyValue::ofText(7, u"other")}), id);
        ASSERT_TRUE(database_->read(record));
        ASSERT_NE(record.find(text), nullptr);
        EXPECT_EQ(record.find(text)->text, u"other");
        ASSERT_EQ(database_->write(*transaction, id, std::vector{PropertyValue::ofUi4(99, 2)}), id);
    }
    ASSERT_TRUE(transaction->commit());
    std::size_t records = 0;
    for (ObjectId id = database_->seek(Seek::toBeginning()); id != ObjectId::none;
         id = database_->seek(Seek::fromCurrent(1)), ++records) {
        ASSERT_TRUE(database_->read(record));
        ASSERT_EQ(record.values().size(), 3U);
        EXPECT_EQ(record.values()[1].text, u"other");
        EXPECT_EQ(record.values()[2].number, 2U);
    }
    EXPECT_EQ(records, 3U);
    EXPECT_TRUE(store_->check([](std::string_view finding) { ADD_FAILURE() << finding; }));
}

TEST_F(ObjectStoreTest, AgreesWithAModelUnderRandomUse) {
    makeDatabase(byDate);
    std::mt19937 random(20261121); // NOLINT(cert-msc51-cpp): the same every time
    const auto below = [&random](std::uint32_t n) { return random() % n; };
    std::map<std::pair<std::uint64_t, ObjectId>, bool> model; // by date (undated: the largest) and id
    constexpr std::uint64_t undated = std::numeric_limits<std::uint64_t>::max();
    const auto nth = [&model](std::size_t n) { return std::next(model.begin(), static_cast<std::ptrdiff_t>(n)); };
    auto transaction = store_->begin();
    for (int round = 0; round < 3000; ++round) {
        if (round % 300 == 0) {
            ASSERT_TRUE(transaction->commit());
            transaction = store_->begin();
        }
        ASSERT_TRUE(transaction);
        const std::uint64_t when = below(8) == 0 ? undated : below(20);
        std::vector<PropertyValue> properties = {when == undated ? PropertyValue::deletionOf(byDate) : date(when)};
        if (model.empty() || below(3) == 0) {
            model[{when, database_->write(*transaction, ObjectId::none, properties)}] = true;
        } else {
            const auto victim = nth(below(static_cast<std::uint32_t>(model.size())));
            const ObjectId id = victim->first.second;
            ASSERT_EQ(database_->seek(Seek::toId(id)), id);
            model.erase(victim);
            if (below(2) == 0) {
                ASSERT_TRUE(database_->deleteCurrent(*transaction));
            } else {
                model[{when, database_->write(*transaction, id, properties)}] = true;
            }
        }
        const std::uint64_t key = below(20);
        const auto equal = model.lower_bound({key, ObjectId::none});
        const auto greater = model.lower_bound({key + 1, ObjectId::none});
        const bool hasEqual = equal != model.end() && equal->first.first == key;
        const bool hasGreater = greater != model.end() && greater->first.first != undated;
        EXPECT_EQ(database_->seek(Seek::toFirstEqual(date(key))), hasEqual ? equal->first.second : ObjectId::none);
        EXPECT_EQ(database_->seek(Seek::toGreater(date(key))), hasGreater ? greater->first.second : ObjectId::none);
        if (hasGreater && std::next(greater) != model.end()) {
            EXPECT_EQ(database_->seek(Seek::fromCurrent(1)), std::next(greater)->first.second);
        }
    }
    ASSERT_TRUE(transaction->commit());
    std::vector<ObjectId> expected;
    for (const auto& [key, value] : model)
        expected.push_back(key.second);
    EXPECT_EQ(walk(Seek::toBeginning()), expected);
    EXPECT_EQ(walk(Seek::toEnd(), -1), std::vector(expected.rbegin(), expected.rend()));
    EXPECT_TRUE(store_->check([](std::string_view finding) { ADD_FAILURE() << finding; }));
}

TEST_F(ObjectStoreTest, SecondProcessSeesCommitsAndIsKeptFromWriting) {
    makeDatabase(byDate);
    auto other = openSqliteObjectStore(file(), {.busyTimeout = std::chrono::milliseconds(20)});
    ASSERT_TRUE(other.store);
    const auto otherDatabase = other.store->openDatabase(other.store->databases().front().id, byDate);
    {
        const auto transaction = store_->begin();
        EXPECT_NE(database_->write(*transaction, ObjectId::none, std::array{date(1), PropertyValue::ofText(88, u"x")}),
                  ObjectId::none);
        EXPECT_FALSE(other.store->begin());
        EXPECT_EQ(other.store->lastError(), PlatformError::locked);
        EXPECT_EQ(otherDatabase->seek(Seek::toBeginning()), ObjectId::none);
        ASSERT_TRUE(transaction->commit());
    }
    EXPECT_NE(otherDatabase->seek(Seek::toBeginning()), ObjectId::none);
    PropertyBuffer read;
    ASSERT_TRUE(otherDatabase->read(read)); // with a column that it did not know
    EXPECT_EQ(read.values().back().text, u"x");
    const auto snapshot = other.store->snapshot();
    EXPECT_NE(otherDatabase->seek(Seek::toBeginning()), ObjectId::none);
    EXPECT_FALSE(other.store->begin()); // not under a snapshot
}

TEST_F(ObjectStoreTest, OpeningTheFileAgainKeepsThisProcessesLocks) {
    makeDatabase(byDate);
    const auto transaction = store_->begin();
    ASSERT_TRUE(transaction);
    EXPECT_TRUE(openSqliteObjectStore(file()).store); // opened and closed beside the running transaction
    const std::string shell = "sqlite3 " + file().string() + " 'BEGIN IMMEDIATE' 2>/dev/null";
    EXPECT_NE(std::system(shell.c_str()), 0); // another process is still kept out
}

TEST_F(ObjectStoreTest, DoesNotWaitForOthersWhenToldSo) {
    makeDatabase(byDate);
    auto other = openSqliteObjectStore(file());
    ASSERT_TRUE(other.store);
    const auto transaction = store_->begin();
    other.store->waitForOthers(false);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(other.store->begin());
    EXPECT_EQ(other.store->lastError(), PlatformError::locked);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1)); // the patience would be 5
    other.store->waitForOthers(true);
    ASSERT_TRUE(transaction->commit());
    EXPECT_TRUE(other.store->begin());
}

// A copy of before is put back by renaming, as restoring does.
TEST_F(ObjectStoreTest, FollowsAFileThatTookThePlaceOfItsOwn) {
    makeDatabase(byDate);
    const auto count = [this] {
        const auto database = store_->openDatabase(store_->databases().front().id, byDate);
        return database->recordCount();
    };
    const auto addRecord = [this] {
        const auto transaction = store_->begin();
        return transaction != nullptr &&
               database_->write(*transaction, ObjectId::none, std::array{date(1)}) != ObjectId::none &&
               transaction->commit();
    };
    const std::filesystem::path copy = file().string() + ".copy";
    std::filesystem::copy_file(file(), copy);
    ASSERT_TRUE(addRecord());
    EXPECT_FALSE(store_->isReplaced());

    std::filesystem::rename(copy, file());
    EXPECT_TRUE(store_->isReplaced());
    EXPECT_FALSE(addRecord()); // it would be lost in a file without a name
    EXPECT_EQ(count(), 1U);
    ASSERT_TRUE(store_->reopen());
    EXPECT_FALSE(store_->isReplaced());
    EXPECT_EQ(count(), 0U);
    EXPECT_NE(database_->seek(Seek::toBeginning()), ObjectId::none); // still that of the former file
    EXPECT_FALSE(addRecord());
    database_ = store_->openDatabase(store_->databases().front().id, byDate);
    EXPECT_TRUE(addRecord());
    EXPECT_EQ(count(), 1U);
}

TEST_F(ObjectStoreTest, KeepsItsFileWhenTheOneInItsPlaceIsOfNoUse) {
    makeDatabase(byDate);
    std::filesystem::rename(file(), file().string() + ".away");
    EXPECT_FALSE(store_->isReplaced()); // there is none yet
    EXPECT_FALSE(store_->reopen());
    EXPECT_EQ(store_->lastError(), PlatformError::fileNotFound);
    EXPECT_FALSE(std::filesystem::exists(file()));
    std::ofstream(file()) << std::string(5000, 'x');
    EXPECT_TRUE(store_->isReplaced());
    EXPECT_FALSE(store_->reopen());
    EXPECT_EQ(store_->databases().size(), 1U);
    std::filesystem::rename(file().string() + ".away", file());
    EXPECT_FALSE(store_->isReplaced());
    const auto transaction = store_->begin();
    EXPECT_TRUE(transaction);
    EXPECT_FALSE(store_->reopen()); // not now
}

TEST_F(ObjectStoreTest, FindsDatabasesByTypeAndOrderOfCreation) {
    const auto transaction = store_->begin();
    const auto create = [&](std::u16string_view name, std::uint32_t type) {
        return store_->createDatabase(*transaction, {.name = name, .type = type, .sortProperty = byName});
    };
    const ObjectId a = create(u"A", 1);
    const ObjectId other = create(u"A", 2);
    const ObjectId b = create(u"B", 1);
    EXPECT_EQ(create(u"B", 1), ObjectId::none);
    EXPECT_EQ(store_->lastError(), PlatformError::alreadyExists);
    EXPECT_NE(create(u"b", 1), ObjectId::none);
    EXPECT_TRUE(store_->deleteDatabase(*transaction, b));
    EXPECT_FALSE(store_->deleteDatabase(*transaction, b));
    ASSERT_TRUE(transaction->commit());
    const auto found = store_->databases(1);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].id, a);
    EXPECT_EQ(found[1].name, u"b");
    EXPECT_EQ(store_->databases().size(), 3U);
    EXPECT_EQ(store_->openDatabase(b, byName), nullptr);
    EXPECT_NE(store_->openDatabase(other, byName), nullptr);
}

// --- files that are not a sound store of ours ------------------------------------------------------------------------

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void overwrite(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

TEST_F(ObjectStoreTest, RefusesForeignNewerAndDamagedFilesUntouched) {
    makeDatabase(byDate);
    add(1);
    database_.reset();
    store_.reset();
    const std::string sound = contents(file());
    const auto with = [&sound](std::size_t offset, std::string_view bytes) {
        std::string changed = sound;
        return changed.replace(offset, bytes.size(), bytes);
    };
    struct Case {
        const char* name;
        std::string bytes;
        PlatformError error;
    };
    const std::vector<Case> cases = {
        {"text", "Dear diary, today I worked for three hours.", PlatformError::fileCorrupt},
        {"another application's id", with(68, "ABCD"), PlatformError::openFailed},
        {"newer layout", with(60, std::string_view("\0\0\0\x63", 4)), PlatformError::revisionMismatch},
        {"header only", sound.substr(0, 100), PlatformError::fileCorrupt},
        {"schema page zeroed", with(100, std::string(3000, '\0')), PlatformError::fileCorrupt},
    };
    for (const Case& c : cases) {
        overwrite(file(), c.bytes);
        const OpenedStore opened = openSqliteObjectStore(file());
        EXPECT_FALSE(opened.store) << c.name;
        EXPECT_EQ(opened.error, c.error) << c.name;
        EXPECT_FALSE(opened.reason.empty()) << c.name;
        EXPECT_TRUE(contents(file()) == c.bytes) << c.name;
    }
    const OpenedStore missing = openSqliteObjectStore(directory_.path() / "nowhere" / "store.db");
    EXPECT_EQ(missing.error, PlatformError::pathNotFound);
    EXPECT_FALSE(std::filesystem::exists(directory_.path() / "nowhere"));
    overwrite(file(), ""); // what a process killed while creating leaves behind
    EXPECT_TRUE(openSqliteObjectStore(file()).store);
}

TEST_F(ObjectStoreTest, CheckNoticesEveryFlippedBitOfContent) {
    makeDatabase(byDate);
    write(ObjectId::none, {date(0x0102'0304'0506), PropertyValue::ofText(1002, u"Walrus & Partners"),
                           PropertyValue::ofUi4(1008, 4550)});
    database_.reset();
    store_.reset();
    const std::string sound = contents(file());
    const std::size_t at = sound.find("Walrus");
    ASSERT_NE(at, std::string::npos);
    for (std::size_t byte = at - 6; byte < at + 19; ++byte)
        for (int bit = 0; bit < 8; ++bit) {
            std::string damaged = sound;
            damaged[byte] = static_cast<char>(damaged[byte] ^ 1 << bit);
            overwrite(file(), damaged);
            const OpenedStore opened = openSqliteObjectStore(file());
            EXPECT_TRUE(!opened.store || !opened.store->check([](std::string_view) {})) << byte << " bit " << bit;
        }
}

TEST_F(ObjectStoreTest, DamagedRecordIsNotWrittenOver) {
    makeDatabase(byDate);
    const ObjectId id = write(ObjectId::none, {date(1), PropertyValue::ofText(1002, u"Walrus")});
    database_.reset();
    store_.reset();
    std::string bytes = contents(file());
    bytes[bytes.find("Walrus")] = 'V';
    overwrite(file(), bytes);
    open();
    database_ = store_->openDatabase(store_->databases().front().id, byDate);
    EXPECT_EQ(write(id, {PropertyValue::ofUi2(9, 1)}), ObjectId::none);
    EXPECT_EQ(store_->lastError(), PlatformError::fileCorrupt);
}

} // namespace
} // namespace hourwright::platform
