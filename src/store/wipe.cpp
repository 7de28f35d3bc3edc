#include "store/wipe.h"

#include <algorithm>
#include <array>
#include <span>

namespace hourwright::store {

using platform::PlatformError;

namespace {

constexpr std::array allInOrder = {DatabaseKind::data1,    DatabaseKind::expenses, DatabaseKind::clients,
                                   DatabaseKind::projects, DatabaseKind::tasks,    DatabaseKind::contacts,
                                   DatabaseKind::rates,    DatabaseKind::data2};
constexpr std::span allKinds(allInOrder);
constexpr std::span allButEntries = allKinds.subspan(2);
constexpr std::span structureKinds = allKinds.subspan(2, 5);
constexpr std::span structureWithoutRates = allKinds.subspan(2, 4);

// Deletes the databases and makes them anew, or nothing of both.
PlatformError replaceDatabases(Stores& stores, std::span<const DatabaseKind> kinds) {
    platform::ObjectStore& objects = stores.objects();
    const auto transaction = objects.begin();
    const bool replaced =
        transaction &&
        std::ranges::all_of(
            kinds,
            [&](DatabaseKind kind) { return deleteFirstDatabase(*transaction, objects, databaseSpec(kind).type); }) &&
        stores.createMissing(*transaction) && transaction->commit();
    return replaced ? PlatformError::none : objects.lastError();
}

// The result of a wipe. What went wrong is kept beyond the opening of the stores that followed.
bool finish(Stores& stores, PlatformError wiping, bool opened) {
    if (wiping == PlatformError::none && opened)
        return true;
    return stores.entries().refuse(wiping != PlatformError::none ? wiping : stores.objects().lastError());
}

} // namespace

bool deleteFirstDatabase(platform::Transaction& transaction, platform::ObjectStore& objects, std::uint32_t type) {
    const auto found = objects.databases(type);
    return found.empty() ? objects.lastError() == PlatformError::none
                         : objects.deleteDatabase(transaction, found.front().id);
}

bool wipeAll(Stores& stores, const NotificationRequest* entryNotification) {
    stores.close();
    const PlatformError error = replaceDatabases(stores, allKinds);
    return finish(stores, error, stores.open(entryNotification));
}

bool wipeStructure(Stores& stores, bool includeRates) {
    for (const DatabaseKind kind : allButEntries)
        stores[kind].close();
    const PlatformError error = replaceDatabases(stores, includeRates ? structureKinds : structureWithoutRates);
    const bool opened = stores.lists().open() &&
                        std::ranges::all_of(structureKinds, [&](DatabaseKind kind) { return stores[kind].open(); });
    return finish(stores, error, opened);
}

} // namespace hourwright::store
