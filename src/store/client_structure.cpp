#include "store/client_structure.h"

#include "store/fields.h"

#include <array>

namespace hourwright::store {

using platform::PropertyValue;
using platform::Seek;

namespace {

// Calls `visit` with the records whose sort property equals the key until it returns false. False when reading failed.
template<typename Record, typename Visit>
bool forEachEqual(Stores& stores, const PropertyValue& key, Visit visit) {
    const auto snapshot = stores.objects().snapshot();
    RecordStore& store = stores[databaseOf<Record>];
    platform::PropertyBuffer properties;
    Record record;
    for (RecordId id = store.seek(Seek::toFirstEqual(key)); id != RecordId::none;
         id = store.seek(Seek::toNextEqual(key))) {
        if (store.read(properties) != ReadResult::ok)
            return false;
        readStructureRecord(id, properties, record);
        if (!visit(record))
            return true;
    }
    return store.lastError() == platform::PlatformError::noMoreItems;
}

template<typename Record, typename Visit>
bool forEachOf(Stores& stores, std::uint32_t clientId, Visit visit) {
    return forEachEqual<Record>(stores, PropertyValue::ofUi4(field::clientId, clientId), visit);
}

// Calls `visit` with all clients until it returns false. False when reading failed.
template<typename Visit>
bool forEachClient(Stores& stores, Visit visit) {
    const auto snapshot = stores.objects().snapshot();
    RecordStore& clients = stores.clients();
    platform::PropertyBuffer properties;
    ClientRecord client;
    for (RecordId id = clients.seek(Seek::toBeginning()); id != RecordId::none;
         id = clients.seek(Seek::fromCurrent(1))) {
        if (clients.read(properties) != ReadResult::ok)
            return false;
        readStructureRecord(id, properties, client);
        if (!visit(client))
            return true;
    }
    return clients.lastError() == platform::PlatformError::noMoreItems;
}

// Adds a record to a client unless one is there that is the same.
template<typename Record, typename Same>
std::optional<RecordId> addUnlessThere(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                                       std::span<const PropertyValue> properties, Same same) {
    RecordStore& store = stores[databaseOf<Record>];
    if (clientId == 0) {
        store.refuse(platform::PlatformError::invalidParameter);
        return std::nullopt;
    }
    bool there = false;
    const bool read =
        forEachOf<Record>(stores, clientId, [&](const Record& record) { return !(there = same(record)); });
    if (!read)
        return std::nullopt;
    if (there)
        return RecordId::none;
    const RecordId id = store.write(transaction, RecordId::none, properties);
    return id != RecordId::none ? std::optional(id) : std::nullopt;
}

// Texts are stored up to a zero unit; what is compared must be what will be stored.
std::u16string_view asStored(std::u16string_view text) {
    return text.substr(0, text.find(u'\0'));
}

template<typename Record>
std::optional<RecordId> addName(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                                std::u16string_view name) {
    name = asStored(name);
    if (name.empty())
        return RecordId::none;
    const std::array properties = {PropertyValue::ofUi4(field::clientId, clientId),
                                   PropertyValue::ofText(field::text, name)};
    return addUnlessThere<Record>(transaction, stores, clientId, properties,
                                  [name](const Record& record) { return record.name == name; });
}

// Deletes the records of a client that match.
template<typename Record, typename Match>
bool deleteMatching(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId, Match match) {
    bool deleted = true;
    const bool read = forEachOf<Record>(stores, clientId, [&](const Record& record) {
        deleted = !match(record) || stores[databaseOf<Record>].deleteCurrent(transaction);
        return deleted;
    });
    return read && deleted;
}

} // namespace

std::uint32_t addClient(platform::Transaction& transaction, Stores& stores, std::u16string_view name) {
    const std::uint32_t clientId = stores.allocateClientId(transaction);
    if (clientId == 0)
        return 0;
    const std::array properties = {PropertyValue::ofUi4(field::clientId, clientId),
                                   PropertyValue::ofText(field::client, name)};
    return stores.clients().write(transaction, RecordId::none, properties) != RecordId::none ? clientId : 0;
}

std::optional<std::vector<ClientRecord>> listClients(Stores& stores) {
    std::vector<ClientRecord> clients;
    const bool read = forEachClient(stores, [&](const ClientRecord& client) {
        clients.push_back(client);
        return true;
    });
    return read ? std::optional(std::move(clients)) : std::nullopt;
}

std::optional<ClientRecord> findClient(Stores& stores, std::u16string_view name) {
    ClientRecord found;
    const bool read =
        forEachEqual<ClientRecord>(stores, PropertyValue::ofText(field::client, name), [&](const ClientRecord& client) {
            found = client;
            return false;
        });
    return read ? std::optional(found) : std::nullopt;
}

std::optional<ClientRecord> findClient(Stores& stores, std::uint32_t clientId) {
    ClientRecord found;
    const bool read = forEachClient(stores, [&](const ClientRecord& client) {
        if (client.clientId == clientId)
            found = client;
        return found.id == RecordId::none;
    });
    return read ? std::optional(found) : std::nullopt;
}

std::optional<RecordId> addProjectTask(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                                       std::u16string_view project, std::u16string_view task) {
    project = asStored(project);
    task = asStored(task);
    if (project.empty())
        return RecordId::none;
    const std::array properties = {PropertyValue::ofUi4(field::clientId, clientId),
                                   PropertyValue::ofText(field::text, project),
                                   PropertyValue::ofText(field::task, task)};
    return addUnlessThere<ProjectRecord>(transaction, stores, clientId, properties, [&](const ProjectRecord& record) {
        return record.project == project && record.task == task;
    });
}

std::optional<RecordId> addTask(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                                std::u16string_view name) {
    return addName<TaskRecord>(transaction, stores, clientId, name);
}

std::optional<RecordId> addContact(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                                   std::u16string_view name) {
    return addName<ContactRecord>(transaction, stores, clientId, name);
}

bool writeRate(platform::Transaction& transaction, Stores& stores, RateRecord& rate) {
    if (rate.rate < 0)
        return stores.rates().refuse(platform::PlatformError::invalidParameter);
    const std::uint16_t flags = rate.id == RecordId::none ? flagsNew : flagsAfterUpdate(rate.flags, flagsChanged);
    const std::array properties = {PropertyValue::ofUi4(field::clientId, rate.clientId),
                                   PropertyValue::ofUi2(field::kind, static_cast<std::uint16_t>(rate.type)),
                                   PropertyValue::ofText(field::description, rate.description),
                                   PropertyValue::ofBoolean(field::rateFlag, rate.flag),
                                   PropertyValue::ofUi4(field::rate, static_cast<std::uint32_t>(rate.rate)),
                                   PropertyValue::ofFileTime(field::stamp, rate.modified),
                                   PropertyValue::ofUi2(field::flags, flags)};
    const RecordId id = stores.rates().write(transaction, rate.id, properties);
    if (id == RecordId::none)
        return false;
    rate.id = id;
    rate.flags = flags;
    return true;
}

template<typename Record>
std::optional<std::vector<Record>> recordsOf(Stores& stores, std::uint32_t clientId) {
    std::vector<Record> records;
    const bool read = forEachOf<Record>(stores, clientId, [&](const Record& record) {
        records.push_back(record);
        return true;
    });
    return read ? std::optional(std::move(records)) : std::nullopt;
}

template<typename Record>
bool deleteRecordsOf(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId) {
    return deleteMatching<Record>(transaction, stores, clientId, [](const Record&) { return true; });
}

template<typename Record>
bool deleteRecord(platform::Transaction& transaction, Stores& stores, RecordId id) {
    RecordStore& store = stores[databaseOf<Record>];
    if (store.seek(Seek::toId(id)) == RecordId::none)
        return store.lastError() == platform::PlatformError::noMoreItems;
    return store.deleteCurrent(transaction);
}

bool deleteProject(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                   std::u16string_view project) {
    return deleteMatching<ProjectRecord>(transaction, stores, clientId,
                                         [project](const ProjectRecord& record) { return record.project == project; });
}

bool deleteClient(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId) {
    // The rates under this id are everybody's.
    if (clientId == defaultRatesOwner)
        return stores.clients().refuse(platform::PlatformError::invalidParameter);
    const auto client = findClient(stores, clientId);
    return client && deleteRecordsOf<ProjectRecord>(transaction, stores, clientId) &&
           deleteRecordsOf<TaskRecord>(transaction, stores, clientId) &&
           deleteRecordsOf<ContactRecord>(transaction, stores, clientId) &&
           deleteRecordsOf<RateRecord>(transaction, stores, clientId) &&
           deleteRecord<ClientRecord>(transaction, stores, client->id);
}

bool learnStructure(platform::Transaction& transaction, Stores& stores, const TimeEntry& entry) {
    const auto client = findClient(stores, entry.client);
    if (!client)
        return false;
    if (client->id == RecordId::none || client->clientId == 0)
        return true;
    const auto work = entry.project.empty()
                          ? addTask(transaction, stores, client->clientId, entry.task)
                          : addProjectTask(transaction, stores, client->clientId, entry.project, entry.task);
    return work && addContact(transaction, stores, client->clientId, entry.billTo);
}

template std::optional<std::vector<ProjectRecord>> recordsOf<ProjectRecord>(Stores&, std::uint32_t);
template std::optional<std::vector<TaskRecord>> recordsOf<TaskRecord>(Stores&, std::uint32_t);
template std::optional<std::vector<ContactRecord>> recordsOf<ContactRecord>(Stores&, std::uint32_t);
template std::optional<std::vector<RateRecord>> recordsOf<RateRecord>(Stores&, std::uint32_t);
template bool deleteRecordsOf<ProjectRecord>(platform::Transaction&, Stores&, std::uint32_t);
template bool deleteRecordsOf<TaskRecord>(platform::Transaction&, Stores&, std::uint32_t);
template bool deleteRecordsOf<ContactRecord>(platform::Transaction&, Stores&, std::uint32_t);
template bool deleteRecordsOf<RateRecord>(platform::Transaction&, Stores&, std::uint32_t);
template bool deleteRecord<ProjectRecord>(platform::Transaction&, Stores&, RecordId);
template bool deleteRecord<TaskRecord>(platform::Transaction&, Stores&, RecordId);
template bool deleteRecord<ContactRecord>(platform::Transaction&, Stores&, RecordId);
template bool deleteRecord<RateRecord>(platform::Transaction&, Stores&, RecordId);

} // namespace hourwright::store
