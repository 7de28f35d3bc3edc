#pragma once

#include "store/stores.h"
#include "store/structure_records.h"
#include "store/time_entry.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// Keeping the client structure. Names are compared exactly, with regard to case. Nothing is returned by a look-up that
/// could not read its store; the store's `lastError` says why.
namespace hourwright::store {

/// Adds a client under a new id and returns that; 0 when it was not written. The caller has checked that the name is
/// not empty and not taken.
[[nodiscard]] std::uint32_t addClient(platform::Transaction& transaction, Stores& stores, std::u16string_view name);

/// All clients in the order of their names.
[[nodiscard]] std::optional<std::vector<ClientRecord>> listClients(Stores& stores);

/// The first client of that name, or the one with that id; a record without an id when there is none.
[[nodiscard]] std::optional<ClientRecord> findClient(Stores& stores, std::u16string_view name);
[[nodiscard]] std::optional<ClientRecord> findClient(Stores& stores, std::uint32_t clientId);

/// Adds a task under a project, or a task or contact to the client itself. Returns the id of the new record, none when
/// there was nothing to add (an empty project or name, or one already there), and nothing when it was not written.
[[nodiscard]] std::optional<RecordId> addProjectTask(platform::Transaction& transaction, Stores& stores,
                                                     std::uint32_t clientId, std::u16string_view project,
                                                     std::u16string_view task);
[[nodiscard]] std::optional<RecordId> addTask(platform::Transaction& transaction, Stores& stores,
                                              std::uint32_t clientId, std::u16string_view name);
[[nodiscard]] std::optional<RecordId> addContact(platform::Transaction& transaction, Stores& stores,
                                                 std::uint32_t clientId, std::u16string_view name);

/// Writes a new rate (id none) or rewrites the one it has, and sets id and flags. False when it was not written: error
/// 87 for a negative rate. What makes a rate valid is checked before.
[[nodiscard]] bool writeRate(platform::Transaction& transaction, Stores& stores, RateRecord& rate);

/// The project tasks, tasks, contacts or rates of one client, in the order in which they were added.
template<typename Record>
[[nodiscard]] std::optional<std::vector<Record>> recordsOf(Stores& stores, std::uint32_t clientId);

/// Deletes all project tasks, tasks, contacts or rates of one client. As with every deletion, finding nothing is a
/// success, and false means that something was not deleted.
template<typename Record>
[[nodiscard]] bool deleteRecordsOf(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId);

/// Deletes one record by its id.
template<typename Record>
[[nodiscard]] bool deleteRecord(platform::Transaction& transaction, Stores& stores, RecordId id);

/// Deletes a project with all its tasks.
[[nodiscard]] bool deleteProject(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                                 std::u16string_view project);

/// Deletes a client with its project tasks, tasks, contacts and rates, itself last. Entries are not touched.
[[nodiscard]] bool deleteClient(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId);

/// Adds what a saved entry names to its client, if that is known: its task under its project, or to the client itself
/// when it has no project, and its contact.
[[nodiscard]] bool learnStructure(platform::Transaction& transaction, Stores& stores, const TimeEntry& entry);

} // namespace hourwright::store
