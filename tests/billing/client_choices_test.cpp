#include "billing/client_choices.h"

#include <gtest/gtest.h>

namespace hourwright::billing {

namespace {

using store::ClientTree;
using Texts = std::vector<std::u16string>;

struct ProjectOf {
    std::u16string name;
    Texts tasks;
};

ClientTree treeOf(const std::vector<ProjectOf>& projects, const Texts& tasks, const Texts& contacts) {
    ClientTree tree;
    for (const ProjectOf& project : projects) {
        store::ProjectTree branch{project.name, {}};
        for (const std::u16string& task : project.tasks)
            branch.tasks.push_back({.project = project.name, .task = task});
        tree.projects.push_back(branch);
    }
    for (const std::u16string& task : tasks)
        tree.tasks.push_back({.name = task});
    for (const std::u16string& contact : contacts)
        tree.contacts.push_back({.name = contact});
    return tree;
}

const ClientTree acme = treeOf({{u"Site", {u"Design", u"Test"}}, {u"Shop", {u"Design", u""}}}, {u"Travel"}, {u"Ann"});
const ClientTree bolt = treeOf({{u"Site", {u"Build"}}, {u"Lab", {u"Test"}}}, {u"Travel", u"Design"}, {u"Ann", u"Bo"});

TEST(ClientChoices, tasksAreThoseOfTheProjectOrOfTheClient) {
    struct Row {
        const char* name;
        const ClientTree* client;
        std::u16string project;
        ClientChoices choices;
    };
    const Row rows[] = {
        {"project", &acme, u"Site", {{u"Site", u"Shop"}, {u"Design", u"Test"}, {u"Ann"}}},
        {"a task without a name is none", &acme, u"Shop", {{u"Site", u"Shop"}, {u"Design"}, {u"Ann"}}},
        {"no project", &acme, u"", {{u"Site", u"Shop"}, {u"Travel"}, {u"Ann"}}},
        {"unknown project", &bolt, u"site", {{u"Site", u"Lab"}, {u"Travel", u"Design"}, {u"Ann", u"Bo"}}},
        {"unknown client", nullptr, u"Site", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(choicesOf(row.client, row.project), row.choices) << row.name;
}

TEST(ClientChoices, anotherClientClearsWhatOnlyTheFormerOneHas) {
    struct Row {
        const char* name;
        const ClientTree* former;
        const ClientTree* client;
        Texts before; // project, task, contact
        Texts after;
    };
    const Row rows[] = {
        {"both have them", &acme, &bolt, {u"", u"Travel", u"Ann"}, {u"", u"Travel", u"Ann"}},
        {"the project stays, its task does not", &acme, &bolt, {u"Site", u"Design", u""}, {u"Site", u"", u""}},
        {"the project goes, the task is the client's", &acme, &bolt, {u"Shop", u"Design", u""}, {u"", u"Design", u""}},
        {"typed texts stay", &acme, &bolt, {u"Garden", u"Dig", u"Zoe"}, {u"Garden", u"Dig", u"Zoe"}},
        {"contact", &bolt, &acme, {u"Lab", u"Travel", u"Bo"}, {u"", u"Travel", u""}},
        {"to an unknown client", &acme, nullptr, {u"Site", u"Test", u"Ann"}, {u"", u"", u""}},
        {"from an unknown client", nullptr, &acme, {u"Lab", u"Build", u"Bo"}, {u"Lab", u"Build", u"Bo"}},
    };
    for (const Row& row : rows) {
        EntryDraft draft;
        draft.phase = u"Phase";
        draft.project = row.before[0];
        draft.task = row.before[1];
        draft.billTo = row.before[2];
        EntryDraft expected = draft;
        changeClient(draft, row.former, row.client);
        expected.project = row.after[0];
        expected.task = row.after[1];
        expected.billTo = row.after[2];
        EXPECT_EQ(draft, expected) << row.name;
    }
}

} // namespace

} // namespace hourwright::billing
