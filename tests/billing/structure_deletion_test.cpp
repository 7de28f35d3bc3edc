#include "billing/structure_deletion.h"

#include "billing/structure_names.h"
#include "support/recording_message_box.h"
#include "support/structure_fixture.h"

namespace hourwright::billing {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using resources::StringId;
using Lines = std::vector<std::string>;

// Answers a question only if nothing holds the store meanwhile.
class WatchingMessageBox : public platform::MessageBox {
public:
    WatchingMessageBox(platform::ObjectStore& objects, Answer answer) : objects_(objects), answer_(answer) {}
    Answer show(const platform::Message& message) override {
        shown.push_back(message);
        EXPECT_TRUE(objects_.begin()) << "the store is held while the user thinks";
        return answer_;
    }

    std::vector<platform::Message> shown;

private:
    platform::ObjectStore& objects_;
    Answer answer_;
};

class StructureDeletionTest : public test::StructureFixture {
protected:
    /// Deletes with that answer; the questions asked.
    std::vector<platform::Message> remove(const StructureNode& node, Answer answer, Deletion expected) {
        WatchingMessageBox messages(objects(), answer);
        EXPECT_EQ(deleteNode(stores(), messages, node), expected);
        return messages.shown;
    }
};

platform::Message question(StringId id, std::u16string text) {
    return {id, std::move(text), Icon::warning, Buttons::yesNo, Answer::no};
}

TEST_F(StructureDeletionTest, AClientGoesWithAllItHasAfterYes) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    makeFullClient(u"Other");
    change([&](auto& transaction) {
        store::TimeEntry entry{.client = u"Acme", .task = u"Survey"};
        EXPECT_TRUE(store::insertTimeEntry(transaction, stores().entries(), entry));
    });
    const Lines before = linesOf(acme);
    const auto asked = std::vector{
        question(StringId::deleteClient, u"This will also delete all associated projects, tasks, contacts, and rates. "
                                         u"However, time entries are preserved. Are you sure?")};
    EXPECT_EQ(remove(ClientNode{acme}, Answer::no, Deletion::declined), asked);
    EXPECT_EQ(linesOf(acme), before);
    EXPECT_EQ(remove(ClientNode{acme}, Answer::yes, Deletion::done), asked);
    EXPECT_EQ(linesOf(acme), Lines{});
    EXPECT_EQ(store::listClients(stores())->size(), 1U);
    store::TimeEntry entry;
    ASSERT_NE(stores().entries().seek(platform::Seek::toBeginning()), store::RecordId::none);
    ASSERT_EQ(store::readTimeEntry(stores().entries(), entry), store::ReadResult::ok);
    EXPECT_EQ(entry.client, u"Acme");
}

TEST_F(StructureDeletionTest, AProjectIsAskedForItsTasksAreNot) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    const auto asked =
        std::vector{question(StringId::deleteProject, u"Are you sure to delete this project and all its tasks?")};
    EXPECT_EQ(remove(ProjectNode{acme, u"Bridge"}, Answer::no, Deletion::declined), asked);
    const auto pairs = all<store::ProjectRecord>(acme);
    EXPECT_TRUE(remove(ProjectTaskNode{pairs[0].id}, Answer::no, Deletion::done).empty());
    EXPECT_EQ(linesOf(acme), (Lines{"project Bridge/Design", "project Tunnel/Survey", "task Travel", "task Office",
                                    "contact Ms Lind", "rate Standard"}));
    EXPECT_EQ(remove(ProjectNode{acme, u"Bridge"}, Answer::yes, Deletion::done), asked);
    const auto tasks = all<store::TaskRecord>(acme);
    const auto contacts = all<store::ContactRecord>(acme);
    EXPECT_TRUE(remove(TaskNode{tasks[1].id}, Answer::no, Deletion::done).empty());
    EXPECT_TRUE(remove(ContactNode{contacts[0].id}, Answer::no, Deletion::done).empty());
    EXPECT_TRUE(remove(ContactNode{contacts[0].id}, Answer::no, Deletion::done).empty()); // gone already
    EXPECT_EQ(linesOf(acme), (Lines{"project Tunnel/Survey", "task Travel", "rate Standard"}));
}

TEST_F(StructureDeletionTest, WipesAreAskedFor) {
    makeFullClient(u"Acme");
    const auto all = std::vector{question(StringId::deleteAllData, u"Do you want to delete ALL data?")};
    const auto structure = std::vector{
        question(StringId::deleteStructure, u"Do you want to delete the client structure before importing from file? "
                                            u"Time and expense entries are preserved.")};
    struct Case {
        Answer answer;
        Deletion result;
        std::uint64_t tasks;
    };
    for (const Case& c : {Case{Answer::no, Deletion::declined, 2}, Case{Answer::yes, Deletion::done, 0}}) {
        WatchingMessageBox messages(objects(), c.answer);
        EXPECT_EQ(askAndWipeStructure(stores(), messages, false), c.result);
        EXPECT_EQ(messages.shown, structure);
        EXPECT_EQ(stores().tasks().recordCount(), c.tasks);
    }
    for (const Case& c : {Case{Answer::no, Deletion::declined, 1}, Case{Answer::yes, Deletion::done, 0}}) {
        WatchingMessageBox messages(objects(), c.answer);
        EXPECT_EQ(askAndWipeAll(stores(), messages), c.result);
        EXPECT_EQ(messages.shown, all);
        EXPECT_EQ(stores().rates().recordCount(), c.tasks);
    }
}

TEST(StructureNamesTest, TooLongIsRefusedNotCut) {
    constexpr NameRefusal invalid{StringId::error, platform::PlatformError::invalidParameter};
    struct Case {
        std::u16string name;
        std::optional<NameRefusal> asClient;
        std::optional<NameRefusal> otherwise;
    };
    for (const Case& c : std::vector<Case>{
             {u"Acme", {}, {}},
             {std::u16string(127, u'x'), {}, {}},
             {std::u16string(128, u'x'), invalid, invalid},
             {u"", NameRefusal{StringId::clientMissing}, {}},
             {u"(Default Rates)", invalid, {}},
         }) {
        EXPECT_EQ(checkClientName(c.name), c.asClient) << platform::printableUtf8(c.name);
        EXPECT_EQ(checkName(c.name), c.otherwise) << platform::printableUtf8(c.name);
    }
}

} // namespace
} // namespace hourwright::billing
