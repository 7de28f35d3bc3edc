#include "billing/structure_edit.h"

#include <algorithm>

namespace hourwright::billing {

using resources::StringId;
using store::Stores;

namespace {

// Whether a record of the client has what is looked for; nothing when the store could not be read.
template<typename Record, typename Match>
std::optional<bool> anyOf(Stores& stores, std::uint32_t clientId, Match match) {
    const auto records = store::recordsOf<Record>(stores, clientId);
    return records ? std::optional(std::ranges::any_of(*records, match)) : std::nullopt;
}

std::optional<bool> isTaken(Stores& stores, const StructureItem& item, std::u16string_view name) {
    using namespace store;
    const auto isNamed = [name](const auto& record) { return record.name == name; };
    switch (item.kind) {
    case StructureKind::client: {
        const auto client = findClient(stores, name);
        return client ? std::optional(client->id != RecordId::none) : std::nullopt;
    }
    case StructureKind::project:
        return anyOf<ProjectRecord>(stores, item.clientId,
                                    [name](const ProjectRecord& record) { return record.project == name; });
    case StructureKind::projectTask:
        return anyOf<ProjectRecord>(stores, item.clientId, [&](const ProjectRecord& record) {
            return record.project == item.project && record.task == name;
        });
    case StructureKind::task: return anyOf<TaskRecord>(stores, item.clientId, isNamed);
    case StructureKind::contact: return anyOf<ContactRecord>(stores, item.clientId, isNamed);
    }
    return std::nullopt;
}

std::optional<NameRefusal> checkText(const StructureItem& item, std::u16string_view name) {
    if (item.kind == StructureKind::client)
        return checkClientName(name);
    return name.empty() ? std::optional(NameRefusal{StringId::nameMissing}) : checkName(name);
}

} // namespace

std::u16string trimmedName(std::u16string_view typed) {
    const auto first = typed.find_first_not_of(u' ');
    if (first == std::u16string_view::npos)
        return {};
    return std::u16string(typed.substr(first, typed.find_last_not_of(u' ') - first + 1));
}

std::optional<NameRefusal> checkNewName(Stores& stores, const StructureItem& item, std::u16string_view name) {
    if (auto refusal = checkText(item, name))
        return refusal;
    if (name == item.name)
        return std::nullopt;
    const auto taken = isTaken(stores, item, name);
    if (!taken)
        return NameRefusal{StringId::error, stores.objects().lastError()};
    return *taken ? std::optional(NameRefusal{StringId::nameTaken}) : std::nullopt;
}

bool addItem(platform::Transaction& transaction, Stores& stores, StructureItem& item, std::u16string_view name) {
    item.name = name;
    switch (item.kind) {
    case StructureKind::client: item.clientId = store::addClient(transaction, stores, name); return item.clientId != 0;
    case StructureKind::project: return store::addProjectTask(transaction, stores, item.clientId, name, {}).has_value();
    case StructureKind::projectTask:
        return store::addProjectTask(transaction, stores, item.clientId, item.project, name).has_value();
    case StructureKind::task: return store::addTask(transaction, stores, item.clientId, name).has_value();
    case StructureKind::contact: return store::addContact(transaction, stores, item.clientId, name).has_value();
    }
    return false;
}

bool renameItem(platform::Transaction& transaction, Stores& stores, const StructureItem& item, std::u16string_view name,
                store::CarryEntries carry) {
    using store::RenameResult;
    const store::NameChange change{.clientId = item.clientId, .from = item.name, .to = name};
    switch (item.kind) {
    case StructureKind::client:
        return store::renameClient(transaction, stores, item.clientId, name, carry) == RenameResult::done;
    case StructureKind::project: return store::renameProject(transaction, stores, change, carry) == RenameResult::done;
    case StructureKind::projectTask:
    case StructureKind::task:
        return store::renameTask(transaction, stores, change, item.project, carry) == RenameResult::done;
    case StructureKind::contact: return store::renameContact(transaction, stores, change, carry) == RenameResult::done;
    }
    return false;
}

StructureNode nodeOf(const StructureItem& item) {
    switch (item.kind) {
    case StructureKind::client: break;
    case StructureKind::project: return ProjectNode{item.clientId, item.name};
    case StructureKind::projectTask: return ProjectTaskNode{item.id};
    case StructureKind::task: return TaskNode{item.id};
    case StructureKind::contact: return ContactNode{item.id};
    }
    return ClientNode{item.clientId};
}

} // namespace hourwright::billing
