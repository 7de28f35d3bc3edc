#pragma once

#include "store/client_structure.h"

namespace hourwright::store {

/// A project with its tasks. A record whose task is empty makes the project appear, but is no task of it.
struct ProjectTree {
    std::u16string name;
    std::vector<ProjectRecord> tasks;

    friend bool operator==(const ProjectTree&, const ProjectTree&) = default;
};

/// One client with everything that belongs to it, in the order in which it was added; projects stand where their first
/// task stands.
struct ClientTree {
    ClientRecord client;
    std::vector<ProjectTree> projects;
    std::vector<TaskRecord> tasks;
    std::vector<ContactRecord> contacts;
    std::vector<RateRecord> rates;

    friend bool operator==(const ClientTree&, const ClientTree&) = default;
};

/// The tree of a client, and the trees of all clients in the order of their names. Nothing when a store could not be
/// read.
[[nodiscard]] std::optional<ClientTree> clientTree(Stores& stores, const ClientRecord& client);
[[nodiscard]] std::optional<std::vector<ClientTree>> clientTrees(Stores& stores);

} // namespace hourwright::store
