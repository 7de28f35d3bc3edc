#include "store/client_structure.h"

#include "store/client_tree.h"
#include "store/fields.h"
#include "store/save.h"
#include "support/structure_fixture.h"

namespace hourwright::store {
namespace {

using platform::PropertyId;
using platform::Seek;
using platform::ValueType;
using Lines = std::vector<std::string>;

class ClientStructureTest : public test::StructureFixture {
protected:
    std::vector<PropertyId> propertiesOf(RecordStore& store, const Seek& where) {
        platform::PropertyBuffer properties;
        EXPECT_NE(store.seek(where), RecordId::none);
        EXPECT_EQ(store.read(properties), ReadResult::ok);
        std::vector<PropertyId> ids;
        for (const auto& value : properties.values())
            ids.push_back(value.id);
        return ids;
    }
    void save(TimeEntry entry) {
        change([&](auto& transaction) { EXPECT_TRUE(saveTimeEntry(transaction, stores(), entry)); });
    }
    std::vector<std::u16string> clientNames() {
        std::vector<std::u16string> names;
        const auto clients = listClients(stores());
        for (const ClientRecord& client : clients.value())
            names.push_back(client.name);
        return names;
    }
};

TEST_F(ClientStructureTest, ClientsAreNumberedAndFoundExactlyAndListedByName) {
    const std::uint32_t zeta = makeClient(u"Zeta");
    const std::uint32_t acme = makeClient(u"Acme");
    EXPECT_EQ(zeta, 1U);
    EXPECT_EQ(acme, 2U);
    EXPECT_EQ(findClient(stores(), u"Acme")->clientId, acme);
    EXPECT_EQ(findClient(stores(), zeta)->name, u"Zeta");
    for (const std::u16string_view none : {u"acme", u"Acm", u"Acme ", u""})
        EXPECT_EQ(findClient(stores(), none)->id, RecordId::none) << platform::printableUtf8(none);
    EXPECT_EQ(findClient(stores(), 3U)->id, RecordId::none);
    EXPECT_EQ(clientNames(), (std::vector<std::u16string>{u"Acme", u"Zeta"}));
}

TEST_F(ClientStructureTest, RecordsHaveTheirPropertiesInOrder) {
    const PropertyId clientId{1201, ValueType::ui4};
    const PropertyId text{1101, ValueType::text};
    const std::uint32_t client = makeFullClient(u"Acme");
    const Seek ofClient = Seek::toFirstEqual(platform::PropertyValue::ofUi4(1201, client));
    struct Case {
        DatabaseKind kind;
        Seek where;
        std::vector<PropertyId> properties;
    };
    const std::vector<Case> cases = {
        {DatabaseKind::clients, Seek::toBeginning(), {clientId, {1002, ValueType::text}}},
        {DatabaseKind::projects, ofClient, {clientId, text, {1005, ValueType::text}}},
        {DatabaseKind::tasks, ofClient, {clientId, text}},
        {DatabaseKind::contacts, ofClient, {clientId, text}},
        {DatabaseKind::rates,
         ofClient,
         {clientId,
          {1102, ValueType::ui2},
          {1202, ValueType::text},
          {1203, ValueType::boolean},
          {1008, ValueType::ui4},
          {1021, ValueType::fileTime},
          {1022, ValueType::ui2}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(propertiesOf(stores()[c.kind], c.where), c.properties) << static_cast<int>(c.kind);
}

TEST_F(ClientStructureTest, AddsWhatHasANameAndIsNotThere) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    const std::uint32_t other = makeClient(u"Other");
    const std::uint32_t unknownId = 0;
    change([&](auto& transaction) {
        struct Case {
            const char* name;
            std::optional<RecordId> id;
            bool added;
        };
        const std::vector<Case> cases = {
            {"same pair", addProjectTask(transaction, stores(), acme, u"Bridge", u"Survey"), false},
            {"no project", addProjectTask(transaction, stores(), acme, u"", u"Survey"), false},
            {"another task", addProjectTask(transaction, stores(), acme, u"Bridge", u"Check"), true},
            {"another case", addProjectTask(transaction, stores(), acme, u"bridge", u"Survey"), true},
            {"no task", addProjectTask(transaction, stores(), acme, u"Bridge", u""), true},
            {"another client", addProjectTask(transaction, stores(), other, u"Bridge", u"Survey"), true},
            {"same task", addTask(transaction, stores(), acme, u"Office"), false},
            {"empty task", addTask(transaction, stores(), acme, u""), false},
            {"a contact's name as task", addTask(transaction, stores(), acme, u"Ms Lind"), true},
            {"same contact", addContact(transaction, stores(), acme, u"Ms Lind"), false},
            {"empty contact", addContact(transaction, stores(), acme, u""), false},
            {"task up to a zero", addTask(transaction, stores(), acme, std::u16string_view(u"Office\0x", 8)), false},
        };
        for (const Case& c : cases) {
            ASSERT_TRUE(c.id) << c.name;
            EXPECT_EQ(*c.id != RecordId::none, c.added) << c.name;
        }
        EXPECT_FALSE(addTask(transaction, stores(), unknownId, u"Lost"));
        EXPECT_EQ(stores().tasks().lastError(), platform::PlatformError::invalidParameter);
    });
    EXPECT_EQ(linesOf(other), (Lines{"project Bridge/Survey"}));
    EXPECT_EQ(linesOf(acme).size(), 7U + 4U);
}

TEST_F(ClientStructureTest, ARateKeepsEveryFieldAndIsMarkedWhenChanged) {
    const std::uint32_t acme = makeClient(u"Acme");
    RateRecord rate{.clientId = acme,
                    .type = RateType::discount,
                    .description = u"Night",
                    .flag = true,
                    .rate = 2'147'483'647,
                    .modified = {987654321}};
    change([&](auto& transaction) { ASSERT_TRUE(writeRate(transaction, stores(), rate)); });
    EXPECT_NE(rate.id, RecordId::none);
    EXPECT_EQ(rate.flags, 0);
    reopen();
    EXPECT_EQ(all<RateRecord>(acme), std::vector{rate});
    rate.type = RateType::normal;
    rate.rate = 0;
    change([&](auto& transaction) { ASSERT_TRUE(writeRate(transaction, stores(), rate)); });
    EXPECT_EQ(rate.flags, 3);
    EXPECT_EQ(all<RateRecord>(acme), std::vector{rate});
    change([&](auto& transaction) {
        rate.rate = -1;
        EXPECT_FALSE(writeRate(transaction, stores(), rate));
        EXPECT_EQ(stores().rates().lastError(), platform::PlatformError::invalidParameter);
    });
}

TEST_F(ClientStructureTest, DeletesWhatIsNamedAndNothingElse) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    const std::uint32_t other = makeFullClient(u"Other");
    makeRate(defaultRatesOwner, u"Everybody's");
    const Lines otherBefore = linesOf(other);
    const RecordId task = all<TaskRecord>(acme).front().id;
    change([&](auto& transaction) {
        EXPECT_TRUE(deleteProject(transaction, stores(), acme, u"Bridge"));
        EXPECT_TRUE(deleteProject(transaction, stores(), acme, u"bridge")); // finds nothing
        EXPECT_TRUE(deleteRecord<TaskRecord>(transaction, stores(), task));
        EXPECT_TRUE(deleteRecord<TaskRecord>(transaction, stores(), task));
    });
    EXPECT_EQ(linesOf(acme), (Lines{"project Tunnel/Survey", "task Office", "contact Ms Lind", "rate Standard"}));
    change([&](auto& transaction) { EXPECT_TRUE(deleteRecordsOf<ContactRecord>(transaction, stores(), acme)); });
    EXPECT_EQ(linesOf(acme), (Lines{"project Tunnel/Survey", "task Office", "rate Standard"}));
    change([&](auto& transaction) {
        EXPECT_TRUE(deleteClient(transaction, stores(), acme));
        EXPECT_TRUE(deleteClient(transaction, stores(), acme));
        EXPECT_FALSE(deleteClient(transaction, stores(), defaultRatesOwner));
    });
    EXPECT_EQ(linesOf(acme), Lines{});
    EXPECT_EQ(clientNames(), std::vector<std::u16string>{u"Other"});
    EXPECT_EQ(linesOf(other), otherBefore);
    EXPECT_EQ(linesOf(defaultRatesOwner), Lines{"rate Everybody's"});
}

TEST_F(ClientStructureTest, ADeletionThatIsNotCommittedDeletesNothing) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    const Lines before = linesOf(acme);
    {
        const auto transaction = objects().begin();
        ASSERT_TRUE(deleteClient(*transaction, stores(), acme));
    }
    EXPECT_EQ(linesOf(acme), before);
    EXPECT_EQ(findClient(stores(), u"Acme")->clientId, acme);
}

TEST_F(ClientStructureTest, ASavedEntryTeachesItsClient) {
    const std::uint32_t acme = makeClient(u"Acme");
    struct Case {
        const char* name;
        TimeEntry entry;
        Lines learned; ///< all that the client has afterwards
    };
    const std::vector<Case> cases = {
        {"unknown client", {.client = u"acme", .project = u"P", .task = u"T", .billTo = u"B"}, {}},
        {"nothing", {.client = u"Acme"}, {}},
        {"project", {.client = u"Acme", .project = u"P", .task = u"T"}, {"project P/T"}},
        {"again, with contact",
         {.client = u"Acme", .project = u"P", .task = u"T", .billTo = u"B"},
         {"project P/T", "contact B"}},
        {"task alone", {.client = u"Acme", .task = u"T"}, {"project P/T", "task T", "contact B"}},
    };
    for (const Case& c : cases) {
        save(c.entry);
        EXPECT_EQ(linesOf(acme), c.learned) << c.name;
    }
    EXPECT_EQ(clientNames(), std::vector<std::u16string>{u"Acme"}); // entries make no clients
}

TEST_F(ClientStructureTest, ExpensesTeachTheStructureNothing) {
    const std::uint32_t acme = makeClient(u"Acme");
    ExpenseEntry expense{.client = u"Acme", .project = u"P", .billTo = u"B"};
    change([&](auto& transaction) { EXPECT_TRUE(saveExpenseEntry(transaction, stores(), expense)); });
    EXPECT_EQ(linesOf(acme), Lines{});
}

TEST_F(ClientStructureTest, TheTreeStandsInTheOrderOfTheStores) {
    const std::uint32_t zeta = makeClient(u"Zeta");
    const std::uint32_t acme = makeClient(u"Acme");
    makeProject(acme, u"Tunnel", u"Survey");
    makeProject(acme, u"Bridge", u"");
    makeProject(acme, u"Tunnel", u"Design");
    makeTask(acme, u"Travel");
    makeTask(acme, u"Office");
    makeContact(zeta, u"Ms Lind");
    const RateRecord rate = makeRate(acme, u"Standard");
    makeRate(defaultRatesOwner, u"Everybody's");
    const auto trees = clientTrees(stores()).value();
    ASSERT_EQ(trees.size(), 2U);
    const ClientTree& tree = trees[0];
    EXPECT_EQ(tree.client.clientId, acme);
    ASSERT_EQ(tree.projects.size(), 2U);
    EXPECT_EQ(tree.projects[0].name, u"Tunnel");
    ASSERT_EQ(tree.projects[0].tasks.size(), 2U);
    EXPECT_EQ(tree.projects[0].tasks[0].task, u"Survey");
    EXPECT_EQ(tree.projects[0].tasks[1].task, u"Design");
    EXPECT_EQ(tree.projects[1].name, u"Bridge");
    EXPECT_TRUE(tree.projects[1].tasks.empty()); // a project without any task
    ASSERT_EQ(tree.tasks.size(), 2U);
    EXPECT_EQ(tree.tasks[0].name, u"Travel");
    EXPECT_EQ(tree.rates, std::vector{rate});
    EXPECT_EQ(trees[1], clientTree(stores(), trees[1].client));
    ASSERT_EQ(trees[1].contacts.size(), 1U);
    EXPECT_EQ(trees[1].contacts[0].name, u"Ms Lind");
}

TEST_F(ClientStructureTest, AClosedStoreIsAFailureNotAnEmptyOne) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    TimeEntry entry{.client = u"Acme", .task = u"New"};
    change([&](auto& transaction) {
        stores().tasks().close();
        EXPECT_FALSE(learnStructure(transaction, stores(), entry));
        EXPECT_FALSE(deleteClient(transaction, stores(), acme));
        EXPECT_FALSE(clientTrees(stores()));
        stores().clients().close();
        EXPECT_FALSE(listClients(stores()));
        EXPECT_FALSE(findClient(stores(), u"Acme"));
    });
}

} // namespace
} // namespace hourwright::store
