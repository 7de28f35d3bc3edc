#pragma once

#include "platform/file_time.h"
#include "platform/object_store.h"
#include "resources/strings.h"
#include "store/stores.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

/// Replacing one text by another wherever it is the whole of a field, in the records of all kinds.
namespace hourwright::billing {

/// Which field's texts are replaced.
enum class ReplaceType : std::uint8_t {
    client,
    project,
    phase,
    task,
    billTo,
    currency,
    custom1,
    custom2,
    custom3,
    category, ///< of expenses
};

struct ReplaceRequest {
    ReplaceType type = ReplaceType::client;
    std::u16string find; ///< compared exactly
    std::u16string replacement;
};

/// The message of the first text that is missing; nothing when both are there.
[[nodiscard]] std::optional<resources::StringId> checkReplace(const ReplaceRequest& request);

/// How many records were rewritten, apart from the client structure and the pick lists.
struct ReplaceCounts {
    std::size_t entries = 0;
    std::size_t expenses = 0;

    friend bool operator==(const ReplaceCounts&, const ReplaceCounts&) = default;
};

/// Is told how far a replacement is, from 0 to `total`: a step for each time entry and one for all the rest.
using ReplaceProgress = std::function<void(std::size_t done, std::size_t total)>;

/// Replaces a text in time entries and expenses, which are stamped with `now`, in the client structure and in the pick
/// lists, under the caller's transaction. What becomes the same by it is merged: of two equal items of a list one
/// stays, and a client that gets another one's name hands that one its projects, tasks, contacts and rates. Nothing
/// when reading or writing failed: the object store's `lastError` says why, and the transaction must not be committed.
[[nodiscard]] std::optional<ReplaceCounts> replaceText(platform::Transaction& transaction, store::Stores& stores,
                                                       const ReplaceRequest& request, platform::FileTime now,
                                                       const ReplaceProgress& progress = {});

} // namespace hourwright::billing
