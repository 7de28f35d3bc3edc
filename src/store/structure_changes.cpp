#include "store/structure_changes.h"

#include "store/date_walk.h"
#include "store/expense_entry.h"
#include "store/fields.h"

#include <algorithm>
#include <array>

namespace hourwright::store {

using platform::PropertyValue;

namespace {

bool update(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry) {
    return updateTimeEntry(transaction, store, entry);
}

bool update(platform::Transaction& transaction, RecordStore& store, ExpenseEntry& expense) {
    return updateExpenseEntry(transaction, store, expense);
}

// Rewrites the records that `change` says it has changed.
template<typename Entry, typename Change>
bool changeAll(platform::Transaction& transaction, RecordStore& store, platform::FileTime modified, Change change) {
    DateWalk walk(store, {});
    Entry entry;
    ReadResult result = walk.next(entry);
    for (; result == ReadResult::ok; result = walk.next(entry)) {
        if (!change(entry))
            continue;
        entry.modified = modified;
        if (!update(transaction, store, entry))
            return false;
    }
    return result == ReadResult::noMore;
}

bool exchange(std::u16string& text, std::u16string_view from, std::u16string_view to) {
    if (text != from)
        return false;
    text = to;
    return true;
}

// Gives entries and expenses, where `change` applies to them, their new texts.
template<typename Change>
bool carryAll(platform::Transaction& transaction, Stores& stores, CarryEntries carry, Change change) {
    return !carry || (changeAll<TimeEntry>(transaction, stores.entries(), *carry, change) &&
                      changeAll<ExpenseEntry>(transaction, stores.expenses(), *carry, change));
}

// The client whose things are renamed; nothing when it cannot be found or the new name is none.
std::optional<ClientRecord> clientForRenaming(Stores& stores, std::uint32_t clientId, std::u16string_view to) {
    const auto client = findClient(stores, clientId);
    if (!client || (client->id != RecordId::none && clientId != 0 && !to.empty()))
        return client;
    stores.clients().refuse(platform::PlatformError::invalidParameter);
    return std::nullopt;
}

bool writeText(platform::Transaction& transaction, RecordStore& store, RecordId id, std::uint16_t field,
               std::u16string_view text) {
    const std::array properties = {PropertyValue::ofText(field, text)};
    return store.write(transaction, id, properties) != RecordId::none;
}

// Renames the records that match, unless `twin` finds what a record would become among all: then the record goes.
template<typename Record, typename Match, typename Twin>
bool renameRecords(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId, std::uint16_t field,
                   std::u16string_view to, Match match, Twin twin) {
    const auto records = recordsOf<Record>(stores, clientId);
    if (!records)
        return false;
    return std::ranges::all_of(*records, [&](const Record& record) {
        if (!match(record))
            return true;
        const bool doubled = std::ranges::any_of(*records, [&](const Record& other) { return twin(record, other); });
        return doubled ? deleteRecord<Record>(transaction, stores, record.id)
                       : writeText(transaction, stores[databaseOf<Record>], record.id, field, to);
    });
}

// The same for records that have nothing but a name.
template<typename Record>
bool renameNamed(platform::Transaction& transaction, Stores& stores, const NameChange& change) {
    return renameRecords<Record>(
        transaction, stores, change.clientId, field::text, change.to,
        [&](const Record& record) { return record.name == change.from; },
        [&](const Record&, const Record& other) { return other.name == change.to; });
}

bool renameTaskRecords(platform::Transaction& transaction, Stores& stores, const NameChange& change,
                       std::u16string_view project) {
    if (project.empty())
        return renameNamed<TaskRecord>(transaction, stores, change);
    return renameRecords<ProjectRecord>(
        transaction, stores, change.clientId, field::task, change.to,
        [&](const ProjectRecord& record) { return record.project == project && record.task == change.from; },
        [&](const ProjectRecord&, const ProjectRecord& other) {
            return other.project == project && other.task == change.to;
        });
}

RenameResult resultOf(bool done) {
    return done ? RenameResult::done : RenameResult::failed;
}

bool contains(std::span<const std::u16string> names, const std::u16string& name) {
    return std::ranges::find(names, name) != names.end();
}

bool migrateProjects(platform::Transaction& transaction, Stores& stores, const Migration& migration) {
    const auto records = recordsOf<ProjectRecord>(stores, migration.from);
    return records && std::ranges::all_of(*records, [&](const ProjectRecord& record) {
               return !contains(migration.projects, record.project) ||
                      (addProjectTask(transaction, stores, migration.to, record.project, record.task) &&
                       deleteRecord<ProjectRecord>(transaction, stores, record.id));
           });
}

bool migrateTasks(platform::Transaction& transaction, Stores& stores, const Migration& migration) {
    const auto records = recordsOf<TaskRecord>(stores, migration.from);
    return records && std::ranges::all_of(*records, [&](const TaskRecord& record) {
               return !contains(migration.tasks, record.name) ||
                      (addTask(transaction, stores, migration.to, record.name) &&
                       deleteRecord<TaskRecord>(transaction, stores, record.id));
           });
}

} // namespace

RenameResult renameClient(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                          std::u16string_view to, CarryEntries carry) {
    const auto client = clientForRenaming(stores, clientId, to);
    if (!client)
        return RenameResult::failed;
    if (client->name == to)
        return RenameResult::done;
    const auto other = findClient(stores, to);
    if (!other)
        return RenameResult::failed;
    if (other->id != RecordId::none)
        return RenameResult::taken;
    return resultOf(
        writeText(transaction, stores.clients(), client->id, field::client, to) &&
        carryAll(transaction, stores, carry, [&](auto& entry) { return exchange(entry.client, client->name, to); }));
}

RenameResult renameProject(platform::Transaction& transaction, Stores& stores, const NameChange& change,
                           CarryEntries carry) {
    const auto client = clientForRenaming(stores, change.clientId, change.to);
    if (!client)
        return RenameResult::failed;
    if (change.from == change.to)
        return RenameResult::done;
    const bool renamed = renameRecords<ProjectRecord>(
        transaction, stores, change.clientId, field::text, change.to,
        [&](const ProjectRecord& record) { return record.project == change.from; },
        [&](const ProjectRecord& record, const ProjectRecord& other) {
            return other.project == change.to && other.task == record.task;
        });
    return resultOf(renamed && carryAll(transaction, stores, carry, [&](auto& entry) {
                        return entry.client == client->name && exchange(entry.project, change.from, change.to);
                    }));
}

RenameResult renameTask(platform::Transaction& transaction, Stores& stores, const NameChange& change,
                        std::u16string_view project, CarryEntries carry) {
    const auto client = clientForRenaming(stores, change.clientId, change.to);
    if (!client)
        return RenameResult::failed;
    if (change.from == change.to)
        return RenameResult::done;
    const auto changeEntry = [&](TimeEntry& entry) {
        return entry.client == client->name && entry.project == project && exchange(entry.task, change.from, change.to);
    };
    return resultOf(renameTaskRecords(transaction, stores, change, project) &&
                    (!carry || changeAll<TimeEntry>(transaction, stores.entries(), *carry, changeEntry)));
}

RenameResult renameContact(platform::Transaction& transaction, Stores& stores, const NameChange& change,
                           CarryEntries carry) {
    const auto client = clientForRenaming(stores, change.clientId, change.to);
    if (!client)
        return RenameResult::failed;
    if (change.from == change.to)
        return RenameResult::done;
    return resultOf(renameNamed<ContactRecord>(transaction, stores, change) &&
                    carryAll(transaction, stores, carry, [&](auto& entry) {
                        return entry.client == client->name && exchange(entry.billTo, change.from, change.to);
                    }));
}

bool migrateStructure(platform::Transaction& transaction, Stores& stores, const Migration& migration) {
    if (migration.from == migration.to)
        return true;
    return migrateProjects(transaction, stores, migration) && migrateTasks(transaction, stores, migration);
}

} // namespace hourwright::store
