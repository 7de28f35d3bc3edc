#pragma once

#include "platform/file_time.h"
#include "store/client_structure.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Changes that reach over several records of the client structure, and over the entries if wanted. When one fails,
/// its transaction must not be committed.
namespace hourwright::store {

enum class RenameResult : std::uint8_t {
    done,
    taken,  ///< another client has that name; nothing was changed
    failed, ///< something was not read or written, or the new name is empty (error 87)
};

/// Whether the entries and expenses that carry the old name are given the new one: nothing leaves them as they are, an
/// instant changes them as of then.
using CarryEntries = std::optional<platform::FileTime>;

/// The old and the new name of something that belongs to a client.
struct NameChange {
    std::uint32_t clientId = 0;
    std::u16string_view from;
    std::u16string_view to;
};

/// Gives a client another name. Entries and expenses of the client go along.
[[nodiscard]] RenameResult renameClient(platform::Transaction& transaction, Stores& stores, std::uint32_t clientId,
                                        std::u16string_view to, CarryEntries carry);

/// Gives a project another name; beside a project that has it already the two become one, tasks that both have
/// standing once. Entries and expenses of the client and project go along.
[[nodiscard]] RenameResult renameProject(platform::Transaction& transaction, Stores& stores, const NameChange& change,
                                         CarryEntries carry);

/// The same for a task of a project or, with an empty project, of the client itself. Entries of the client, project and
/// task go along.
[[nodiscard]] RenameResult renameTask(platform::Transaction& transaction, Stores& stores, const NameChange& change,
                                      std::u16string_view project, CarryEntries carry);

/// The same for a contact. Entries and expenses of the client that are billed to it go along.
[[nodiscard]] RenameResult renameContact(platform::Transaction& transaction, Stores& stores, const NameChange& change,
                                         CarryEntries carry);

/// The projects and tasks, by name, that move from one client to another.
struct Migration {
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    std::span<const std::u16string> projects;
    std::span<const std::u16string> tasks;
};

/// Moves projects with their tasks, and tasks: the one client loses them, the other has them behind its own, and what
/// it had already stands once. Entries keep their client.
[[nodiscard]] bool migrateStructure(platform::Transaction& transaction, Stores& stores, const Migration& migration);

} // namespace hourwright::store
