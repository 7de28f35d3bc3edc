#include "store/client_tree.h"

#include <algorithm>

namespace hourwright::store {

namespace {

std::vector<ProjectTree> groupByProject(std::vector<ProjectRecord> records) {
    std::vector<ProjectTree> projects;
    for (ProjectRecord& record : records) {
        auto project = std::ranges::find(projects, record.project, &ProjectTree::name);
        if (project == projects.end())
            project = projects.insert(projects.end(), {.name = record.project});
        if (!record.task.empty())
            project->tasks.push_back(std::move(record));
    }
    return projects;
}

} // namespace

std::optional<ClientTree> clientTree(Stores& stores, const ClientRecord& client) {
    const auto snapshot = stores.objects().snapshot();
    auto projects = recordsOf<ProjectRecord>(stores, client.clientId);
    auto tasks = recordsOf<TaskRecord>(stores, client.clientId);
    auto contacts = recordsOf<ContactRecord>(stores, client.clientId);
    auto rates = recordsOf<RateRecord>(stores, client.clientId);
    if (!projects || !tasks || !contacts || !rates)
        return std::nullopt;
    return ClientTree{.client = client,
                      .projects = groupByProject(std::move(*projects)),
                      .tasks = std::move(*tasks),
                      .contacts = std::move(*contacts),
                      .rates = std::move(*rates)};
}

std::optional<std::vector<ClientTree>> clientTrees(Stores& stores) {
    const auto snapshot = stores.objects().snapshot();
    const auto clients = listClients(stores);
    if (!clients)
        return std::nullopt;
    std::vector<ClientTree> trees;
    for (const ClientRecord& client : *clients) {
        auto tree = clientTree(stores, client);
        if (!tree)
            return std::nullopt;
        trees.push_back(std::move(*tree));
    }
    return trees;
}

} // namespace hourwright::store
