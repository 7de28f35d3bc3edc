#include "billing/client_choices.h"

#include <algorithm>

namespace hourwright::billing {

namespace {

using store::ClientTree;
using Texts = std::vector<std::u16string>;

const store::ProjectTree* findProject(const ClientTree& client, std::u16string_view name) {
    const auto found = std::ranges::find(client.projects, name, &store::ProjectTree::name);
    return found != client.projects.end() ? &*found : nullptr;
}

// A task offered twice is one choice.
void add(Texts& texts, const std::u16string& text) {
    if (!text.empty() && std::ranges::find(texts, text) == texts.end())
        texts.push_back(text);
}

void addTasks(Texts& texts, const store::ProjectTree& project) {
    for (const store::ProjectRecord& record : project.tasks)
        add(texts, record.task);
}

// Every task of a client, in whatever project.
Texts allTasks(const ClientTree& client) {
    Texts texts;
    for (const store::TaskRecord& task : client.tasks)
        add(texts, task.name);
    for (const store::ProjectTree& project : client.projects)
        addTasks(texts, project);
    return texts;
}

void clearUnlessOffered(std::optional<std::u16string>& text, const Texts& former, const Texts& offered) {
    const auto isIn = [&text](const Texts& texts) { return std::ranges::find(texts, *text) != texts.end(); };
    if (text && isIn(former) && !isIn(offered))
        text = u"";
}

} // namespace

ClientChoices choicesOf(const ClientTree* client, std::u16string_view project) {
    ClientChoices choices;
    if (!client)
        return choices;
    for (const store::ProjectTree& tree : client->projects)
        add(choices.projects, tree.name);
    for (const store::ContactRecord& contact : client->contacts)
        add(choices.contacts, contact.name);
    if (const auto* tree = findProject(*client, project))
        addTasks(choices.tasks, *tree);
    else
        for (const store::TaskRecord& task : client->tasks)
            add(choices.tasks, task.name);
    return choices;
}

void changeClient(EntryDraft& draft, const ClientTree* former, const ClientTree* client) {
    if (!former)
        return;
    const ClientChoices old = choicesOf(former, {});
    clearUnlessOffered(draft.project, old.projects, choicesOf(client, {}).projects);
    const ClientChoices offered = choicesOf(client, draft.project.value_or(u""));
    clearUnlessOffered(draft.task, allTasks(*former), offered.tasks);
    clearUnlessOffered(draft.billTo, old.contacts, offered.contacts);
}

void changeClient(ExpenseDraft& draft, const ClientTree* former, const ClientTree* client) {
    if (!former)
        return;
    const ClientChoices old = choicesOf(former, {});
    const ClientChoices offered = choicesOf(client, {});
    clearUnlessOffered(draft.project, old.projects, offered.projects);
    clearUnlessOffered(draft.billTo, old.contacts, offered.contacts);
}

} // namespace hourwright::billing
