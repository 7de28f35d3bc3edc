#pragma once

#include "store/stores.h"

#include <cstdint>

/// Emptying the store by deleting whole databases and making them anew. Each wipe is one transaction: when it fails,
/// everything is as it was, and the entry store's `lastError` says why.
namespace hourwright::store {

/// Deletes the first database of a type, whatever its name: a wipe also takes what another program left there. True
/// when there is none.
[[nodiscard]] bool deleteFirstDatabase(platform::Transaction& transaction, platform::ObjectStore& objects,
                                       std::uint32_t type);

/// Deletes all entries, expenses, pick lists and the client structure, and opens the empty stores again; new clients
/// are counted from 1 again. False when it failed or not all stores are open.
[[nodiscard]] bool wipeAll(Stores& stores, const NotificationRequest* entryNotification = nullptr);

/// Deletes all clients, projects, tasks and contacts, and the rates if wanted; rates that stay belong to clients that
/// are no more, except the default ones. Entries, expenses and pick lists are not touched, and no client id is given
/// again. False when it failed or not all of the structure's stores are open.
[[nodiscard]] bool wipeStructure(Stores& stores, bool includeRates);

} // namespace hourwright::store
