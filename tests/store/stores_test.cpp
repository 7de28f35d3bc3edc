#include "store/stores.h"

#include "store/date_walk.h"
#include "store/fields.h"
#include "store/pick_lists.h"
#include "store/save.h"
#include "support/store_fixture.h"

#include <thread>

namespace hourwright::store {
namespace {

using platform::FileTime;
using platform::PropertyId;
using platform::PropertyValue;
using platform::Seek;
using platform::ValueType;

class StoresTest : public test::StoreFixture {
protected:
    std::uint32_t allocate() {
        std::uint32_t id = 0;
        change([&](auto& transaction) { id = stores().allocateClientId(transaction); });
        return id;
    }
    // Empties a database of the given kind by deleting and, at the next opening, making it anew.
    void drop(DatabaseKind kind) {
        change([&](auto& transaction) {
            const auto found = objects().databases(databaseSpec(kind).type);
            ASSERT_EQ(found.size(), 1U);
            ASSERT_TRUE(objects().deleteDatabase(transaction, found.front().id));
        });
    }
    std::vector<FileTime> walk(const DateRange& range) {
        std::vector<FileTime> dates;
        DateWalk walk(stores().entries(), range);
        TimeEntry entry;
        while (walk.next(entry) == ReadResult::ok)
            dates.push_back(entry.date);
        return dates;
    }
    RecordId addEntry(std::uint64_t ticks, std::u16string phase = {}) {
        TimeEntry entry;
        entry.date = {ticks};
        entry.phase = std::move(phase);
        change([&](auto& transaction) { ASSERT_TRUE(saveTimeEntry(transaction, stores(), entry)); });
        return entry.id;
    }
};

TEST_F(StoresTest, MakesTheEightDatabasesByTheirNamesNumbersAndOrders) {
    struct Expected {
        std::u16string name;
        std::uint32_t type;
        PropertyId sort;
    };
    const std::vector<Expected> expected = {
        {u"Hourwright Data 1", 79990001, {1001, ValueType::fileTime}},
        {u"Hourwright Data 2", 79990002, {1102, ValueType::ui2}},
        {u"Hourwright Rates", 79990003, {1201, ValueType::ui4}},
        {u"Hourwright Clients", 79990004, {1002, ValueType::text}},
        {u"Hourwright Projects", 79990005, {1201, ValueType::ui4}},
        {u"Hourwright Tasks", 79990006, {1201, ValueType::ui4}},
        {u"Hourwright Contacts", 79990007, {1201, ValueType::ui4}},
        {u"Hourwright Expenses", 79990008, {1001, ValueType::fileTime}},
    };
    EXPECT_EQ(objects().databases().size(), expected.size());
    for (const Expected& e : expected) {
        const auto found = objects().databases(e.type);
        ASSERT_EQ(found.size(), 1U) << e.type;
        EXPECT_EQ(found.front().name, e.name);
        EXPECT_EQ(found.front().sortProperty, e.sort);
    }
}

TEST_F(StoresTest, ADatabaseOfTheRightNameButAnotherTypeIsNotTaken) {
    drop(DatabaseKind::tasks);
    change([&](auto& transaction) {
        const auto name = resources::string(resources::StringId::databaseTasks);
        const PropertyId sort{1201, ValueType::ui4};
        EXPECT_NE(objects().createDatabase(transaction, {.name = name, .type = 4711, .sortProperty = sort}),
                  platform::ObjectId::none);
        EXPECT_NE(objects().createDatabase(transaction,
                                           {.name = u"hourwright tasks", .type = 79990006, .sortProperty = sort}),
                  platform::ObjectId::none);
    });
    reopen();
    EXPECT_EQ(objects().databases(79990006).size(), 2U);
}

TEST_F(StoresTest, ClientIdsCountUpFromOneAndSurvive) {
    registry().create(platform::settingsKey)->writeDword(u"NextClient", 17);
    EXPECT_EQ(allocate(), 1U);
    EXPECT_EQ(allocate(), 2U);
    reopen();
    EXPECT_EQ(allocate(), 3U);
}

TEST_F(StoresTest, ALostCounterGoesOnFromTheRegistry) {
    registry().create(platform::settingsKey)->writeDword(u"NextClient", 17);
    drop(DatabaseKind::data2);
    reopen();
    EXPECT_EQ(allocate(), 17U);
    EXPECT_EQ(allocate(), 18U);
    // Beside a new clients database it starts at 1 whatever the registry says.
    drop(DatabaseKind::data2);
    drop(DatabaseKind::clients);
    reopen();
    EXPECT_EQ(allocate(), 1U);
}

TEST_F(StoresTest, WithoutACounterNoIdIsGiven) {
    change([&](auto& transaction) {
        ASSERT_NE(stores().lists().seek(Seek::toFirstEqual(PropertyValue::ofUi2(field::kind, 0))), RecordId::none);
        ASSERT_TRUE(stores().lists().deleteCurrent(transaction));
    });
    EXPECT_EQ(allocate(), 0U);
}

TEST_F(StoresTest, KeepsACopyOfTheNotificationBlock) {
    NotificationRequest request{};
    request[19] = std::byte{0xAB};
    ASSERT_TRUE(stores().open(&request));
    request[19] = std::byte{0};
    ASSERT_NE(stores().entries().notification(), nullptr);
    EXPECT_EQ((*stores().entries().notification())[19], std::byte{0xAB});
    EXPECT_EQ(stores().clients().notification(), nullptr);
    stores().close();
    EXPECT_EQ(stores().entries().notification(), nullptr);
    platform::PropertyBuffer nothing;
    EXPECT_EQ(stores().entries().read(nothing), ReadResult::failed);
    EXPECT_EQ(stores().entries().lastError(), platform::PlatformError::invalidHandle);
}

TEST_F(StoresTest, ListsOpenSortedByTextToo) {
    change([&](auto& transaction) {
        for (const std::u16string_view text : {u"plum", u"apple", u"pear"})
            ASSERT_TRUE(addToPickList(transaction, stores(), PickList::phases, text));
    });
    RecordStore byText(objects(), DatabaseKind::data2);
    ASSERT_TRUE(byText.open(nullptr, PropertyId{1101, ValueType::text}));
    std::vector<std::u16string> texts;
    platform::PropertyBuffer item;
    for (RecordId id = byText.seek(Seek::toBeginning()); id != RecordId::none; id = byText.seek(Seek::fromCurrent(1))) {
        ASSERT_EQ(byText.read(item), ReadResult::ok);
        const PropertyValue* const text = item.find({1101, ValueType::text});
        texts.emplace_back(text != nullptr ? text->text : u"(counter)");
    }
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"apple", u"pear", u"plum", u"(counter)"}));
}

TEST_F(StoresTest, SavingFeedsThePickListsOnce) {
    TimeEntry entry;
    entry.phase = u"Survey";
    entry.currency = u"EUR";
    entry.custom1 = u"a";
    entry.custom2 = u"b";
    entry.custom3 = u"c";
    ExpenseEntry expense;
    expense.currency = u"EUR";
    expense.custom1 = u"a2";
    expense.custom2 = u"b";
    expense.category = u"Travel";
    expense.description = u"Ferry";
    expense.note = u"in no list";
    change([&](auto& transaction) {
        ASSERT_TRUE(saveTimeEntry(transaction, stores(), entry));
        ASSERT_TRUE(saveTimeEntry(transaction, stores(), entry)); // now an update
        ASSERT_TRUE(saveExpenseEntry(transaction, stores(), expense));
    });
    EXPECT_EQ(stores().entries().recordCount(), 1U);
    const std::vector<std::pair<PickList, std::vector<std::u16string>>> expected = {
        {PickList::phases, {u"Survey"}},      {PickList::currencies, {u"EUR"}}, {PickList::custom1, {u"a", u"a2"}},
        {PickList::custom2, {u"b"}},          {PickList::custom3, {u"c"}},      {PickList::categories, {u"Travel"}},
        {PickList::descriptions, {u"Ferry"}},
    };
    for (const auto& [list, texts] : expected)
        EXPECT_EQ(pickListTexts(stores(), list), texts) << static_cast<int>(list);
    change([&](auto& transaction) {
        EXPECT_TRUE(addToPickList(transaction, stores(), PickList::phases, u"survey")); // case counts
        EXPECT_TRUE(addToPickList(transaction, stores(), PickList::phases, u""));
    });
    EXPECT_EQ(pickListTexts(stores(), PickList::phases), (std::vector<std::u16string>{u"Survey", u"survey"}));
    change([&](auto& transaction) {
        EXPECT_TRUE(removeFromPickList(transaction, stores(), PickList::phases, u"Survey"));
        EXPECT_TRUE(removeFromPickList(transaction, stores(), PickList::phases, u"Ferry")); // another list's
    });
    EXPECT_EQ(pickListTexts(stores(), PickList::phases), std::vector<std::u16string>{u"survey"});
    EXPECT_EQ(pickListTexts(stores(), PickList::descriptions), std::vector<std::u16string>{u"Ferry"});
}

TEST_F(StoresTest, WalkTakesWhatIsLaterThanItsStartUpToItsEnd) {
    for (const std::uint64_t ticks : {100U, 101U, 200U, 200U, 300U, 301U})
        addEntry(ticks);
    change([&](auto& transaction) { // a damaged record without a date
        EXPECT_NE(stores().entries().write(transaction, RecordId::none, std::array{PropertyValue::ofText(1002, u"x")}),
                  RecordId::none);
    });
    const auto times = [](std::initializer_list<std::uint64_t> ticks) {
        std::vector<FileTime> dates;
        for (const std::uint64_t t : ticks)
            dates.push_back({t});
        return dates;
    };
    EXPECT_EQ(walk({.after = FileTime{100}, .last = FileTime{300}}), times({101, 200, 200, 300}));
    EXPECT_EQ(walk({.after = FileTime{99}, .last = FileTime{99}}), times({}));
    EXPECT_EQ(walk({.after = FileTime{301}, .last = FileTime{999}}), times({}));
    EXPECT_EQ(walk({.after = FileTime{300}}), times({301, 0}));
    EXPECT_EQ(walk({.last = FileTime{101}}), times({100, 101}));
    EXPECT_EQ(walk({}), times({100, 101, 200, 200, 300, 301, 0}));
    EXPECT_TRUE(objects().begin()); // the walks' snapshots are gone
}

TEST_F(StoresTest, WalkReadsOnlyWhatIsAskedFor) {
    addEntry(100, u"Survey");
    const std::array wanted = {PropertyId{field::phase, ValueType::text}};
    DateWalk walk(stores().entries(), {}, wanted);
    ASSERT_EQ(walk.next(), ReadResult::ok);
    ASSERT_EQ(walk.properties().values().size(), 2U);
    EXPECT_EQ(walk.properties().values()[0].text, u"Survey");
    EXPECT_EQ(walk.properties().values()[1].fileTime(), FileTime{100});
    EXPECT_EQ(walk.next(), ReadResult::noMore);
}

TEST_F(StoresTest, TwoWritersAtOnceLoseNothing) {
    constexpr int perWriter = 10;
    const auto writer = [this] {
        test::MemoryRegistry none;
        auto opened = platform::openSqliteObjectStore(file(), {.busyTimeout = std::chrono::seconds(60)});
        const auto mutex = platform::makeNamedMutex(file().parent_path(), std::string(clientIdMutexName));
        Stores own(*opened.store, *mutex, none);
        if (!own.open())
            return;
        for (int i = 0; i < perWriter; ++i) {
            const auto transaction = opened.store->begin();
            TimeEntry entry;
            entry.date = {own.allocateClientId(*transaction)};
            (void)(insertTimeEntry(*transaction, own.entries(), entry) && transaction->commit());
        }
    };
    std::thread first(writer);
    std::thread second(writer);
    first.join();
    second.join();
    std::vector<FileTime> expected; // every id was given exactly once
    for (std::uint64_t id = 1; id <= 2 * perWriter; ++id)
        expected.push_back({id});
    EXPECT_EQ(walk({}), expected);
}

} // namespace
} // namespace hourwright::store
