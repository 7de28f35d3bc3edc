#include "billing/structure_edit.h"

#include "store/save.h"
#include "support/structure_fixture.h"

#include <algorithm>

namespace hourwright::billing {
namespace {

using enum StructureKind;
using platform::PlatformError;
using resources::StringId;

class StructureEditTest : public test::StructureFixture {
protected:
    const std::uint32_t acme = makeFullClient(u"Acme");
};

TEST_F(StructureEditTest, namesAreRefusedThatAreMissingTakenOrTooLong) {
    struct Row {
        StructureItem item;
        std::u16string name;
        std::optional<NameRefusal> refusal;
    };
    const std::u16string tooLong(128, u'x');
    const NameRefusal taken{StringId::nameTaken};
    const NameRefusal invalid{StringId::error, PlatformError::invalidParameter};
    const auto item = [&](StructureKind kind, std::u16string name = {}) {
        return StructureItem{.kind = kind, .clientId = acme, .project = u"Bridge", .name = std::move(name)};
    };
    const Row rows[] = {
        {item(client), u"", NameRefusal{StringId::clientMissing}},
        {item(client), u"Acme", taken},
        {item(client, u"Acme"), u"Acme", {}}, // its own name
        {item(client), u"acme", {}},
        {item(client), u"(Default Rates)", invalid},
        {item(project), u"", NameRefusal{StringId::nameMissing}},
        {item(project), u"Tunnel", taken},
        {item(project), tooLong, invalid},
        {item(projectTask), u"Design", taken},
        {item(projectTask), u"Travel", {}}, // the client's own task
        {item(task), u"Travel", taken},
        {item(task), u"Design", {}}, // a project's task
        {item(contact, u"Mr Ode"), u"Ms Lind", taken},
        {item(contact), u"Mr Ode", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(checkNewName(stores(), row.item, row.name), row.refusal) << platform::printableUtf8(row.name);
}

TEST_F(StructureEditTest, addsToWhatIsNamed) {
    const std::uint32_t clientId = makeClient(u"Bolt");
    change([&](auto& transaction) {
        for (const auto kind : {project, projectTask, task, contact}) {
            StructureItem item{.kind = kind, .clientId = clientId, .project = u"Lab", .name = {}};
            EXPECT_TRUE(addItem(transaction, stores(), item, kind == project ? u"Lab" : u"One"));
        }
    });
    EXPECT_EQ(linesOf(clientId),
              (std::vector<std::string>{"project Lab/", "project Lab/One", "task One", "contact One"}));
}

TEST_F(StructureEditTest, aRenamedProjectTaskTakesOnlyItsOwnEntriesAlong) {
    const auto book = [&](std::u16string project) {
        change([&](auto& transaction) {
            store::TimeEntry entry{.client = u"Acme", .project = project, .task = u"Survey"};
            ASSERT_TRUE(store::saveTimeEntry(transaction, stores(), entry));
        });
    };
    book(u"Bridge");
    book(u"Tunnel");
    const StructureItem item{.kind = projectTask, .clientId = acme, .project = u"Bridge", .name = u"Survey"};
    change([&](auto& transaction) {
        EXPECT_TRUE(renameItem(transaction, stores(), item, u"Measure", platform::FileTime{7}));
    });
    std::vector<std::u16string> tasks;
    stores().entries().seek(platform::Seek::toBeginning());
    for (store::TimeEntry entry; store::readTimeEntry(stores().entries(), entry) == store::ReadResult::ok;) {
        tasks.push_back(entry.project + u"/" + entry.task);
        if (stores().entries().seek(platform::Seek::fromCurrent(1)) == store::RecordId::none)
            break;
    }
    std::ranges::sort(tasks);
    EXPECT_EQ(tasks, (std::vector<std::u16string>{u"Bridge/Measure", u"Tunnel/Survey"}));
    EXPECT_EQ(linesOf(acme).front(), "project Bridge/Measure");
}

TEST(TrimmedName, losesTheBlanksAroundIt) {
    EXPECT_EQ(trimmedName(u"  Acme  Ltd "), u"Acme  Ltd");
    EXPECT_EQ(trimmedName(u"   "), u"");
}

} // namespace
} // namespace hourwright::billing
