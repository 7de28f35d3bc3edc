#include "platform/sqlite/sqlite_object_store.h"
#include "platform/utf.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace hourwright::platform {
namespace {

constexpr PropertyId byDate{1001, ValueType::fileTime};

PropertyValue date(std::uint64_t ticks) {
    return PropertyValue::ofFileTime(1001, {ticks});
}

/// A store with two databases and what happens to their records.
class HistoryTest : public testing::Test {
public:
    HistoryTest() {
        open();
        const auto transaction = store_->begin();
        for (const std::u16string_view name : {u"Things", u"Others"})
            EXPECT_NE(
                store_->createDatabase(*transaction, {.name = name, .type = 7, .sortProperty = byDate, .legend = {}}),
                ObjectId::none);
        EXPECT_TRUE(transaction->commit());
        reopen();
    }

    void open(StoreFileOptions options = {}) {
        things_.reset();
        others_.reset();
        store_.reset();
        auto opened = openSqliteObjectStore(file(), options);
        ASSERT_TRUE(opened.store) << opened.reason;
        store_ = std::move(opened.store);
    }
    void reopen(StoreFileOptions options = {}) {
        open(options);
        things_ = store_->openDatabase(store_->databases()[0].id, byDate);
        others_ = store_->openDatabase(store_->databases()[1].id, byDate);
    }

    [[nodiscard]] std::unique_ptr<Transaction> begin(std::u16string_view name) {
        return store_->begin({.name = name, .time = FileTime{++time_}});
    }
    ObjectId write(std::u16string_view name, ObjectId id, std::vector<PropertyValue> properties) {
        const auto transaction = begin(name);
        const ObjectId written = things_->write(*transaction, id, properties);
        return transaction->commit() ? written : ObjectId::none;
    }
    ObjectId add(std::u16string_view name, std::uint64_t day) { return write(name, ObjectId::none, {date(day)}); }

    // Every record of both databases with all that it holds, in sorted order.
    [[nodiscard]] std::string dump() {
        std::string text;
        PropertyBuffer read;
        for (Database* const database : {things_.get(), others_.get()}) {
            text += "--\n";
            for (ObjectId id = database->seek(Seek::toBeginning()); id != ObjectId::none;
                 id = database->seek(Seek::fromCurrent(1))) {
                EXPECT_TRUE(database->read(read));
                text += std::to_string(static_cast<std::uint32_t>(id));
                for (const PropertyValue& value : read.values())
                    text += ' ' + std::to_string(value.id.value) + '=' + std::to_string(value.number) +
                            toUtf8(value.text) + std::string(value.blob.size(), '#');
                text += '\n';
            }
        }
        return text;
    }
    [[nodiscard]] std::string names() {
        std::string text;
        for (const HistoryStep& step : store_->history().steps())
            text += toUtf8(step.name) + (step.undone ? "- " : "+ ");
        return text;
    }
    [[nodiscard]] std::vector<std::string> findings() {
        std::vector<std::string> found;
        const bool sound = store_->check([&](std::string_view line) { found.emplace_back(line); });
        EXPECT_EQ(sound, found.empty());
        return found;
    }
    [[nodiscard]] int shell(const std::string& sql) const {
        return std::system(("sqlite3 " + file().string() + " \"" + sql + "\"").c_str());
    }
    [[nodiscard]] std::filesystem::path file() const { return directory_.path() / "store.db"; }

    test::TemporaryDirectory directory_;
    std::unique_ptr<ObjectStore> store_;
    std::unique_ptr<Database> things_;
    std::unique_ptr<Database> others_;
    std::uint64_t time_ = 0;
};

TEST_F(HistoryTest, TakesStepsBackAndForthInOrder) {
    const std::string empty = dump();
    const ObjectId id = add(u"a", 5);
    const std::string afterA = dump();
    write(u"b", id, {date(9), PropertyValue::ofText(1002, u"grün")});
    const std::string afterB = dump();
    EXPECT_EQ(names(), "a+ b+ ");

    History& history = store_->history();
    EXPECT_EQ(history.redo(), HistoryResult::nothing);
    EXPECT_EQ(history.undo(), HistoryResult::done);
    EXPECT_EQ(dump(), afterA);
    EXPECT_EQ(names(), "a+ b- ");
    reopen(); // another program goes on with it
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(dump(), empty);
    EXPECT_EQ(store_->history().undo(), HistoryResult::nothing);
    EXPECT_EQ(store_->history().redo(), HistoryResult::done);
    EXPECT_EQ(dump(), afterA);
    EXPECT_EQ(store_->history().redo(), HistoryResult::done);
    EXPECT_EQ(dump(), afterB);
    EXPECT_EQ(names(), "a+ b+ ");
    EXPECT_EQ(findings(), std::vector<std::string>{});
    EXPECT_NE(add(u"c", 1), id); // an id is never given twice
}

TEST_F(HistoryTest, DescribesEachStep) {
    const ObjectId id = add(u"Add", 5);
    const auto transaction = store_->begin({.name = u"Märk", .time = FileTime{4711}});
    things_->write(*transaction, id, std::vector{date(6)});
    things_->write(*transaction, id, std::vector{date(7)});
    others_->write(*transaction, ObjectId::none, std::vector{date(1)});
    ASSERT_TRUE(transaction->commit());
    const auto steps = store_->history().steps();
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[1], (HistoryStep{steps[0].id + 1, u"Märk", FileTime{4711}, 2, false}));
}

TEST_F(HistoryTest, RemembersOnlyNamedTransactionsThatChangeSomethingAndAreCommitted) {
    add(u"", 1);
    {
        const auto transaction = begin(u"nothing done");
        EXPECT_TRUE(transaction->commit());
    }
    const ObjectId id = add(u"kept", 2);
    write(u"the same again", id, {date(2)});
    {
        const auto transaction = begin(u"taken back");
        things_->write(*transaction, ObjectId::none, std::vector{date(3)});
    }
    EXPECT_EQ(names(), "kept+ ");
}

TEST_F(HistoryTest, ANewStepForgetsTheUndoneOnes) {
    add(u"a", 1);
    add(u"b", 2);
    add(u"c", 3);
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    add(u"", 4); // without a name it forgets nothing
    EXPECT_EQ(names(), "a+ b- c- ");
    add(u"d", 5);
    EXPECT_EQ(names(), "a+ d+ ");
    EXPECT_EQ(store_->history().redo(), HistoryResult::nothing);
    EXPECT_EQ(findings(), std::vector<std::string>{});
}

TEST_F(HistoryTest, RefusesAStepWhoseRecordsWereChangedMeanwhile) {
    struct Case {
        const char* name;
        std::function<void(HistoryTest&, ObjectId)> step;
        std::function<void(HistoryTest&, ObjectId)> meanwhile;
        bool redo = false;
    };
    const auto addOther = [](HistoryTest& t, ObjectId) { t.add(u"step", 700); };
    const auto edit = [](HistoryTest& t, ObjectId id) { t.write(u"step", id, {date(71)}); };
    const auto remove = [](HistoryTest& t, ObjectId id) {
        const auto transaction = t.begin(u"step");
        t.things_->seek(Seek::toId(id));
        EXPECT_TRUE(t.things_->deleteCurrent(*transaction) && transaction->commit());
    };
    const auto editQuietly = [](HistoryTest& t, ObjectId id) { t.write(u"", id, {date(72)}); };
    const auto removeQuietly = [](HistoryTest& t, ObjectId id) {
        const auto transaction = t.begin(u"");
        t.things_->seek(Seek::toId(id));
        EXPECT_TRUE(t.things_->deleteCurrent(*transaction) && transaction->commit());
    };
    const auto removeNewest = [](HistoryTest& t, ObjectId) {
        const auto transaction = t.begin(u"");
        t.things_->seek(Seek::toEnd());
        EXPECT_TRUE(t.things_->deleteCurrent(*transaction) && transaction->commit());
    };
    const std::vector<Case> cases = {
        {"an edited record was edited", edit, editQuietly},   {"an edited record was deleted", edit, removeQuietly},
        {"a new record was deleted", addOther, removeNewest}, {"redo of an edit", edit, editQuietly, true},
        {"redo of a deletion", remove, editQuietly, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ObjectId id = add(u"", 60);
        c.step(*this, id);
        if (c.redo) {
            ASSERT_EQ(store_->history().undo(), HistoryResult::done);
        }
        c.meanwhile(*this, id);
        const std::string before = dump();
        const std::string stepsBefore = names();
        EXPECT_EQ(c.redo ? store_->history().redo() : store_->history().undo(), HistoryResult::changedMeanwhile);
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(names(), stepsBefore);
        EXPECT_EQ(findings(), std::vector<std::string>{});
    }
}

TEST_F(HistoryTest, AStepIsUndoneWhollyOrNotAtAll) {
    const ObjectId first = add(u"", 1);
    const ObjectId second = add(u"", 2);
    {
        const auto transaction = begin(u"both");
        things_->write(*transaction, first, std::vector{date(11)});
        things_->write(*transaction, second, std::vector{date(12)});
        ASSERT_TRUE(transaction->commit());
    }
    write(u"", first, {date(99)}); // found only after the other one was taken back
    const std::string before = dump();
    EXPECT_EQ(store_->history().undo(), HistoryResult::changedMeanwhile);
    EXPECT_EQ(dump(), before);
}

TEST_F(HistoryTest, KeepsItsBounds) {
    reopen({.historySteps = 3});
    for (std::uint64_t day = 1; day <= 5; ++day)
        add(std::u16string(1, static_cast<char16_t>(u'a' + day)), day);
    EXPECT_EQ(names(), "d+ e+ f+ ");
    EXPECT_EQ(findings(), std::vector<std::string>{});

    reopen({.historyBytes = 1000});
    const std::vector<std::byte> blob(400);
    for (const std::u16string_view name : {u"1", u"2", u"3"})
        write(name, ObjectId::none, {date(1), PropertyValue::ofBlob(1012, blob)});
    EXPECT_EQ(names(), "2+ 3+ ");
    const std::vector<std::byte> large(5000);
    const std::string before = dump();
    write(u"large", ObjectId::none, {PropertyValue::ofBlob(1012, large)});
    EXPECT_EQ(names(), "large+ "); // the newest one stays
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(findings(), std::vector<std::string>{});
}

TEST_F(HistoryTest, IsEmptiedWhenADatabaseIsDeleted) {
    add(u"a", 1);
    const auto transaction = begin(u"wipe");
    others_->write(*transaction, ObjectId::none, std::vector{date(1)});
    ASSERT_TRUE(store_->deleteDatabase(*transaction, things_->id()));
    others_->write(*transaction, ObjectId::none, std::vector{date(2)});
    ASSERT_TRUE(transaction->commit());
    EXPECT_EQ(names(), "");
    EXPECT_EQ(store_->history().undo(), HistoryResult::nothing);
    EXPECT_EQ(findings(), std::vector<std::string>{});
}

TEST_F(HistoryTest, TwoProgramsShareOneHistory) {
    const auto other = openSqliteObjectStore(file());
    const auto others = other.store->openDatabase(things_->id(), byDate);
    const ObjectId id = add(u"mine", 1);
    {
        const auto transaction = other.store->begin({.name = u"theirs", .time = {}});
        ASSERT_EQ(others->write(*transaction, id, std::vector{PropertyValue::ofUi2(1999, 5)}), id); // a new column
        ASSERT_TRUE(transaction->commit());
    }
    add(u"mine again", 3);
    EXPECT_EQ(names(), "mine+ theirs+ mine again+ ");
    EXPECT_EQ(other.store->history().undo(), HistoryResult::done);
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(dump(), "--\n" + std::to_string(static_cast<std::uint32_t>(id)) + " 65601600=1\n--\n");
    EXPECT_EQ(other.store->history().undo(), HistoryResult::done);
    EXPECT_EQ(dump(), "--\n--\n");
    EXPECT_EQ(store_->history().redo(), HistoryResult::done);
    EXPECT_EQ(other.store->history().redo(), HistoryResult::done);
    EXPECT_EQ(names(), "mine+ theirs+ mine again- ");
}

TEST_F(HistoryTest, ACrashLeavesNeitherTheChangeNorItsStep) {
    add(u"a", 1);
    const std::string before = dump();
    reopen();
    const pid_t child = test::inChild([this]() -> bool {
        auto opened = openSqliteObjectStore(file());
        const auto database = opened.store->openDatabase(opened.store->databases()[0].id, byDate);
        const auto transaction = opened.store->begin({.name = u"crash", .time = {}}).release();
        for (int i = 0; i < 20000; ++i) // more than stays in memory
            database->write(
                *transaction, ObjectId::none,
                std::vector{date(7), PropertyValue::ofText(1002, u"a text of some length, again and again")});
        _exit(0);
    });
    ASSERT_TRUE(test::succeeded(child));
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(names(), "a+ ");
    EXPECT_EQ(findings(), std::vector<std::string>{});
}

TEST_F(HistoryTest, AWalkGoesOnCorrectlyAfterAnUndo) {
    std::vector<ObjectId> ids;
    for (std::uint64_t day = 10; day <= 50; day += 10)
        ids.push_back(add(u"", day));
    write(u"move", ids[0], {date(45)});
    EXPECT_EQ(things_->seek(Seek::toBeginning()), ids[1]);
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(things_->seek(Seek::fromCurrent(-1)), ids[0]);
    PropertyBuffer read;
    ASSERT_TRUE(things_->read(read));
    EXPECT_EQ(read.values()[0].number, 10U);
    EXPECT_EQ(things_->seek(Seek::toEnd(1)), ids[3]);
}

TEST_F(HistoryTest, IsNotUsedInTheMidstOfAChange) {
    add(u"a", 1);
    const auto transaction = begin(u"b");
    EXPECT_EQ(store_->history().undo(), HistoryResult::failed);
    EXPECT_EQ(store_->lastError(), PlatformError::invalidParameter);
    EXPECT_TRUE(transaction->commit());
}

// Steps of several records: an update, an addition, a deletion each.
class LongStepTest : public HistoryTest {
public:
    LongStepTest() {
        const ObjectId kept = add(u"", 1);
        const ObjectId lost = add(u"", 2);
        before_ = dump();
        const auto transaction = begin(u"long");
        EXPECT_EQ(things_->write(*transaction, kept, std::array{date(7), PropertyValue::ofUi2(1006, 5)}), kept);
        EXPECT_NE(things_->write(*transaction, ObjectId::none, std::array{date(3)}), ObjectId::none);
        EXPECT_EQ(things_->seek(Seek::toId(lost)), lost);
        EXPECT_TRUE(things_->deleteCurrent(*transaction));
        EXPECT_NE(others_->write(*transaction, ObjectId::none, std::array{date(4)}), ObjectId::none);
        EXPECT_TRUE(transaction->commit());
        after_ = dump();
    }

protected:
    static constexpr std::uint64_t changes = 4;
    std::string before_;
    std::string after_;
};

TEST_F(LongStepTest, TellsHowFarItIs) {
    for (const bool back : {true, false}) {
        std::vector<std::uint64_t> told;
        const auto progress = [&told](std::uint64_t done) {
            told.push_back(done);
            return true;
        };
        History& history = store_->history();
        EXPECT_EQ(back ? history.undo(progress) : history.redo(progress), HistoryResult::done);
        EXPECT_EQ(told, (std::vector<std::uint64_t>{1, 2, 3, 4}));
        EXPECT_EQ(dump(), back ? before_ : after_);
    }
}

TEST_F(LongStepTest, CancelledAnywhereItHasChangedNothing) {
    for (std::uint64_t at = 1; at <= changes; ++at) {
        EXPECT_EQ(store_->history().undo([at](std::uint64_t done) { return done < at; }), HistoryResult::cancelled);
        EXPECT_EQ(store_->lastError(), PlatformError::none);
        EXPECT_EQ(dump(), after_) << at;
        EXPECT_EQ(names(), "long+ ");
    }
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(store_->history().redo([](std::uint64_t done) { return done < 2; }), HistoryResult::cancelled);
    EXPECT_EQ(dump(), before_);
    EXPECT_EQ(findings(), std::vector<std::string>{});
    EXPECT_EQ(store_->history().redo(), HistoryResult::done);
    EXPECT_EQ(dump(), after_);
}

TEST_F(LongStepTest, KilledAnywhereItHasChangedNothing) {
    for (std::uint64_t at = 1; at <= changes; ++at) {
        const pid_t child = test::inChild([&] {
            auto own = openSqliteObjectStore(file());
            return own.store != nullptr && own.store->history().undo([at](std::uint64_t done) {
                if (done == at)
                    raise(SIGKILL);
                return true;
            }) == HistoryResult::done;
        });
        EXPECT_FALSE(test::succeeded(child));
        reopen();
        EXPECT_EQ(dump(), after_) << at;
        EXPECT_EQ(findings(), std::vector<std::string>{});
    }
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(dump(), before_);
}

TEST_F(HistoryTest, DamageIsFoundAndNotCarriedOut) {
    const std::string unfit = "UPDATE journal_steps SET ";
    for (const std::string& damage :
         {std::string("UPDATE journal_parts SET content = zeroblob(length(content))"), unfit + "undone = 1 - undone",
          unfit + "name = 'another'", std::string("DELETE FROM journal_parts")}) {
        SCOPED_TRACE(damage);
        add(u"a", 1);
        reopen();
        ASSERT_EQ(shell("BEGIN; " + damage + "; COMMIT"), 0);
        EXPECT_EQ(findings().size(), 1U);
        const std::string before = dump();
        const HistoryResult result = store_->history().undo();
        EXPECT_TRUE(result == HistoryResult::failed || result == HistoryResult::nothing);
        EXPECT_EQ(dump(), before);
        ASSERT_EQ(shell("DELETE FROM journal_parts; DELETE FROM journal_steps"), 0);
    }
}

TEST_F(HistoryTest, AFileWithoutHistoryGetsItWithTheFirstNamedChange) {
    add(u"", 1);
    reopen();
    ASSERT_EQ(shell("DROP TABLE IF EXISTS journal_steps; DROP TABLE IF EXISTS journal_parts"), 0);
    EXPECT_EQ(store_->history().undo(), HistoryResult::nothing);
    EXPECT_EQ(names(), "");
    add(u"a", 2);
    EXPECT_EQ(store_->history().undo(), HistoryResult::done);
    EXPECT_EQ(findings(), std::vector<std::string>{});
}

// Random changes of records of many shapes: each state comes back, and forth again.
TEST_F(HistoryTest, EveryStateComesBackExactly) {
    std::mt19937 random(20261116);
    const auto below = [&random](std::size_t limit) { return static_cast<std::uint32_t>(random() % limit); };
    const std::vector<std::byte> blob(300, std::byte{7});
    const std::u16string lone = {u'x', char16_t{0xD800}};
    const auto randomProperties = [&] {
        std::vector<PropertyValue> list;
        for (const PropertyValue& value :
             {date(below(20)), PropertyValue::ofText(1002, below(2) != 0 ? u"Ärzte" : u""),
              PropertyValue::ofText(1003, lone), PropertyValue::ofUi4(1008, below(3)),
              PropertyValue::ofBlob(1012, std::span(blob).first(below(300))), PropertyValue::ofUi2(1006, 65535),
              PropertyValue::ofBoolean(1009, below(2) != 0)})
            if (below(2) != 0)
                list.push_back(below(4) == 0 ? PropertyValue::deletionOf(value.id) : value);
        std::shuffle(list.begin(), list.end(), random);
        return list;
    };
    std::vector<ObjectId> made;
    std::vector<std::string> states = {dump()};
    for (int step = 0; step < 60; ++step) {
        const auto transaction = begin(u"step");
        for (std::uint32_t change = below(8) + 1; change > 0; --change) {
            Database& database = below(3) == 0 ? *others_ : *things_;
            const ObjectId id = made.empty() || below(3) == 0 ? ObjectId::none : made[below(made.size())];
            const bool known = id != ObjectId::none && database.seek(Seek::toId(id)) == id;
            if (known && below(4) == 0) {
                ASSERT_TRUE(database.deleteCurrent(*transaction));
                continue;
            }
            made.push_back(database.write(*transaction, known ? id : ObjectId::none, randomProperties()));
            ASSERT_NE(made.back(), ObjectId::none);
        }
        ASSERT_TRUE(transaction->commit());
        if (store_->history().steps().size() + 1 > states.size())
            states.push_back(dump());
    }
    for (int round = 0; round < 2; ++round) {
        for (std::size_t at = states.size() - 1; at-- > 0;) {
            ASSERT_EQ(store_->history().undo(), HistoryResult::done);
            ASSERT_EQ(dump(), states[at]);
        }
        EXPECT_EQ(findings(), std::vector<std::string>{});
        for (std::size_t at = 1; at < states.size(); ++at) {
            ASSERT_EQ(store_->history().redo(), HistoryResult::done);
            ASSERT_EQ(dump(), states[at]);
        }
    }
}

} // namespace
} // namespace hourwright::platform
