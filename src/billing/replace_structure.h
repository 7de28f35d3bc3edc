#pragma once

#include "platform/file_time.h"
#include "platform/object_store.h"
#include "store/pick_lists.h"
#include "store/stores.h"

#include <cstdint>
#include <string_view>

/// Replacing names in the client structure and the pick lists, exactly, without leaving two equal items. False when
/// anything could not be read or written: the transaction must not be committed then.
namespace hourwright::billing {

/// A replacement and the witness of its writing.
struct Renaming {
    platform::Transaction& transaction;
    store::Stores& stores;
    std::u16string_view from;
    std::u16string_view to;
    platform::FileTime now;
};

/// Replaces the text of a field in every record of one of the databases of projects, tasks or contacts.
[[nodiscard]] bool renameInStructure(const Renaming& renaming, store::DatabaseKind database, std::uint16_t field);

/// Replaces a text of a pick list.
[[nodiscard]] bool renameInPickList(const Renaming& renaming, store::PickList list);

/// Renames a client. When the new name is another client's, that one gets what the old one has and it does not have
/// yet, and the old one is deleted.
[[nodiscard]] bool renameClient(const Renaming& renaming);

} // namespace hourwright::billing
