#pragma once

#include "platform/message_box.h"
#include "store/client_structure.h"

#include <cstdint>
#include <string>
#include <variant>

/// What the user deletes from the client structure: the question first, while nothing holds the store, then all
/// deletions in one transaction.
namespace hourwright::billing {

enum class Deletion : std::uint8_t {
    done,
    declined, ///< the answer was No
    failed,   ///< nothing was deleted; the volume's or the entry store's last error says why
};

/// The nodes of the client tree.
struct ClientNode {
    std::uint32_t clientId = 0;
};
struct ProjectNode {
    std::uint32_t clientId = 0;
    std::u16string project;
};
struct ProjectTaskNode {
    store::RecordId id = store::RecordId::none;
};
struct TaskNode {
    store::RecordId id = store::RecordId::none;
};
struct ContactNode {
    store::RecordId id = store::RecordId::none;
};
using StructureNode = std::variant<ClientNode, ProjectNode, ProjectTaskNode, TaskNode, ContactNode>;

/// Deletes a node with all below it. Clients and projects are asked for, the others not. Entries are preserved. It can
/// be undone when the label has a name.
[[nodiscard]] Deletion deleteNode(store::Stores& stores, platform::MessageBox& messages, const StructureNode& node,
                                  const platform::ChangeLabel& label = {});

/// The two halves of it, for callers that have a transaction of their own: the question (true for Yes, or when there is
/// none), and the deletion (false when it failed).
[[nodiscard]] bool askToDelete(platform::MessageBox& messages, const StructureNode& node);
[[nodiscard]] bool deleteNode(platform::Transaction& transaction, store::Stores& stores, const StructureNode& node);

/// Asks, then wipes all data, or the client structure with or without the rates.
[[nodiscard]] Deletion askAndWipeAll(store::Stores& stores, platform::MessageBox& messages,
                                     const store::NotificationRequest* entryNotification = nullptr);
[[nodiscard]] Deletion askAndWipeStructure(store::Stores& stores, platform::MessageBox& messages, bool includeRates);

} // namespace hourwright::billing
