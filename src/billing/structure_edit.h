#pragma once

#include "billing/structure_deletion.h"
#include "billing/structure_names.h"
#include "store/structure_changes.h"

#include <cstdint>
#include <optional>
#include <string>

/// Adding and renaming in the client structure as the user does it: names are checked first, and one that is there
/// already is refused.
namespace hourwright::billing {

enum class StructureKind : std::uint8_t { client, project, projectTask, task, contact };

/// Something in the client structure.
struct StructureItem {
    StructureKind kind = StructureKind::client;
    std::uint32_t clientId = 0;
    std::u16string project; ///< of a task under a project
    std::u16string name;
    store::RecordId id = store::RecordId::none; ///< not set for a project, which is no record of its own

    friend bool operator==(const StructureItem&, const StructureItem&) = default;
};

/// A typed name without the blanks around it.
[[nodiscard]] std::u16string trimmedName(std::u16string_view typed);

/// Why the item cannot be given this name; nothing when it can. An item without a name is one that is to be added. The
/// item's own name is no obstacle.
[[nodiscard]] std::optional<NameRefusal> checkNewName(store::Stores& stores, const StructureItem& item,
                                                      std::u16string_view name);

/// Adds an item of that name; the client id of a new client is set. False when it was not written.
[[nodiscard]] bool addItem(platform::Transaction& transaction, store::Stores& stores, StructureItem& item,
                           std::u16string_view name);

/// Renames an item. False when something was not written or the name is taken.
[[nodiscard]] bool renameItem(platform::Transaction& transaction, store::Stores& stores, const StructureItem& item,
                              std::u16string_view name, store::CarryEntries carry);

/// The item as the node that is deleted.
[[nodiscard]] StructureNode nodeOf(const StructureItem& item);

} // namespace hourwright::billing
