#include "billing/structure_deletion.h"

#include "store/wipe.h"

#include <optional>

namespace hourwright::billing {

using platform::Transaction;
using resources::StringId;
using store::Stores;

namespace {

// The question of each kind of node; nothing for those that go without one.
struct Question {
    std::optional<StringId> operator()(const ClientNode&) const { return StringId::deleteClient; }
    std::optional<StringId> operator()(const ProjectNode&) const { return StringId::deleteProject; }
    template<typename Node>
    std::optional<StringId> operator()(const Node&) const {
        return std::nullopt;
    }
};

struct Deleter {
    Transaction& transaction;
    Stores& stores;

    bool operator()(const ClientNode& node) const { return store::deleteClient(transaction, stores, node.clientId); }
    bool operator()(const ProjectNode& node) const {
        return store::deleteProject(transaction, stores, node.clientId, node.project);
    }
    bool operator()(const ProjectTaskNode& node) const { return deleteOne<store::ProjectRecord>(node.id); }
    bool operator()(const TaskNode& node) const { return deleteOne<store::TaskRecord>(node.id); }
    bool operator()(const ContactNode& node) const { return deleteOne<store::ContactRecord>(node.id); }

private:
    template<typename Record>
    bool deleteOne(store::RecordId id) const {
        return store::deleteRecord<Record>(transaction, stores, id);
    }
};

Deletion resultOf(bool deleted) {
    return deleted ? Deletion::done : Deletion::failed;
}

} // namespace

bool askToDelete(platform::MessageBox& messages, const StructureNode& node) {
    const auto question = std::visit(Question{}, node);
    return !question || messages.ask(*question);
}

bool deleteNode(Transaction& transaction, Stores& stores, const StructureNode& node) {
    return std::visit(Deleter{transaction, stores}, node);
}

Deletion deleteNode(Stores& stores, platform::MessageBox& messages, const StructureNode& node,
                    const platform::ChangeLabel& label) {
    if (!askToDelete(messages, node))
        return Deletion::declined;
    const auto transaction = stores.objects().begin(label);
    return resultOf(transaction && deleteNode(*transaction, stores, node) && transaction->commit());
}

Deletion askAndWipeAll(Stores& stores, platform::MessageBox& messages,
                       const store::NotificationRequest* entryNotification) {
    if (!messages.ask(StringId::deleteAllData))
        return Deletion::declined;
    return resultOf(store::wipeAll(stores, entryNotification));
}

Deletion askAndWipeStructure(Stores& stores, platform::MessageBox& messages, bool includeRates) {
    if (!messages.ask(StringId::deleteStructure))
        return Deletion::declined;
    return resultOf(store::wipeStructure(stores, includeRates));
}

} // namespace hourwright::billing
