#include "store/wipe.h"

#include "store/pick_lists.h"
#include "store/time_entry.h"
#include "support/structure_fixture.h"

namespace hourwright::store {
namespace {

using Lines = std::vector<std::string>;

class WipeTest : public test::StructureFixture {
protected:
    void fill() {
        makeFullClient(u"Acme");
        makeRate(defaultRatesOwner, u"Everybody's");
        change([&](auto& transaction) {
            TimeEntry entry{.client = u"Acme"};
            EXPECT_TRUE(insertTimeEntry(transaction, stores().entries(), entry));
            ExpenseEntry expense{.client = u"Acme"};
            EXPECT_TRUE(insertExpenseEntry(transaction, stores().expenses(), expense));
            EXPECT_TRUE(addToPickList(transaction, stores(), PickList::phases, u"Phase"));
        });
    }
    /// Records of data1, expenses, clients, projects, tasks, contacts, rates, data2.
    std::vector<std::uint64_t> counts() {
        std::vector<std::uint64_t> result;
        for (std::size_t kind = 0; kind < databaseCount; ++kind)
            result.push_back(stores()[static_cast<DatabaseKind>(kind)].recordCount());
        return result;
    }
    void createForeign(std::u16string_view name, std::uint32_t type) {
        change([&](auto& transaction) {
            EXPECT_NE(objects().createDatabase(
                          transaction, {.name = name, .type = type, .sortProperty = {1201, platform::ValueType::ui4}}),
                      platform::ObjectId::none);
        });
    }
    void drop(DatabaseKind kind) {
        change([&](auto& transaction) {
            EXPECT_TRUE(deleteFirstDatabase(transaction, objects(), databaseSpec(kind).type));
        });
    }
};

const std::vector<std::uint64_t> full = {1, 1, 1, 3, 2, 1, 2, 2};
const std::vector<std::uint64_t> empty = {0, 0, 0, 0, 0, 0, 0, 1}; // the client-id counter

TEST_F(WipeTest, WipingAllLeavesOnlyACounterThatStartsAtOne) {
    registry().create(platform::settingsKey)->writeDword(u"NextClient", 17);
    fill();
    EXPECT_EQ(counts(), full);
    NotificationRequest request{};
    request[3] = std::byte{9};
    ASSERT_TRUE(wipeAll(stores(), &request));
    EXPECT_EQ(counts(), empty);
    ASSERT_NE(stores().expenses().notification(), nullptr);
    EXPECT_EQ(*stores().entries().notification(), request);
    EXPECT_EQ(makeClient(u"First"), 1U);
    reopen();
    EXPECT_EQ(findClient(stores(), u"First")->clientId, 1U);
}

TEST_F(WipeTest, WipingAllMakesWhatIsMissing) {
    fill();
    drop(DatabaseKind::expenses);
    ASSERT_TRUE(wipeAll(stores()));
    EXPECT_EQ(counts(), empty);
    EXPECT_EQ(stores().entries().notification(), nullptr);
}

TEST_F(WipeTest, WipingTheStructureKeepsTheRest) {
    struct Case {
        const char* name;
        bool rates;
        std::vector<std::uint64_t> left;
    };
    for (const Case& c :
         {Case{"without rates", false, {1, 1, 0, 0, 0, 0, 2, 2}}, Case{"with rates", true, {2, 2, 0, 0, 0, 0, 0, 2}}}) {
        fill();
        ASSERT_TRUE(wipeStructure(stores(), c.rates)) << c.name;
        EXPECT_EQ(counts(), c.left) << c.name;
    }
    EXPECT_EQ(makeClient(u"Next"), 3U); // ids are never given again
}

TEST_F(WipeTest, RatesThatStayKeepTheirOwner) {
    fill();
    ASSERT_TRUE(wipeStructure(stores(), false));
    EXPECT_EQ(linesOf(1), Lines{"rate Standard"});
    EXPECT_EQ(findClient(stores(), 1U)->id, RecordId::none);
}

TEST_F(WipeTest, TheFirstDatabaseOfATypeGoesWhateverItsName) {
    drop(DatabaseKind::tasks);
    createForeign(u"Foreign", databaseSpec(DatabaseKind::tasks).type);
    reopen();
    const std::uint32_t acme = makeClient(u"Acme");
    makeTask(acme, u"Travel");
    createForeign(u"Later", databaseSpec(DatabaseKind::projects).type);
    ASSERT_TRUE(wipeStructure(stores(), true));
    EXPECT_EQ(linesOf(acme), Lines{"task Travel"});
    const auto tasks = objects().databases(databaseSpec(DatabaseKind::tasks).type);
    ASSERT_EQ(tasks.size(), 1U);
    EXPECT_EQ(tasks.front().name, u"Hourwright Tasks");
    EXPECT_EQ(objects().databases(databaseSpec(DatabaseKind::projects).type).size(), 2U);
}

TEST_F(WipeTest, AWipeThatCannotBeginChangesNothing) {
    fill();
    {
        const auto other = objects().begin();
        EXPECT_FALSE(wipeAll(stores()));
        EXPECT_EQ(stores().entries().lastError(), platform::PlatformError::invalidParameter);
        EXPECT_FALSE(wipeStructure(stores(), true));
    }
    EXPECT_EQ(counts(), full);
    EXPECT_EQ(makeClient(u"Next"), 2U);
}

} // namespace
} // namespace hourwright::store
