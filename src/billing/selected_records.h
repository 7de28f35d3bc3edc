#pragma once

#include "platform/file_time.h"
#include "store/stores.h"

#include <optional>
#include <span>

/// Changes of the records that are selected in a view, under the caller's transaction. Each returns false when reading
/// or writing failed; the transaction must not be committed then. A record that was deleted meanwhile is passed over.
namespace hourwright::billing {

/// Which of the two stores the ids belong to.
enum class Selected : std::uint8_t { entries, expenses };

/// Turns billed and paid records into billable ones, and the others into billed ones, each for itself.
[[nodiscard]] bool toggleBilled(platform::Transaction& transaction, store::Stores& stores, Selected kind,
                                std::span<const store::RecordId> ids, platform::FileTime now);

/// Makes the records paid ones of today; when all of them are paid already, it makes them billed ones.
[[nodiscard]] bool togglePaid(platform::Transaction& transaction, store::Stores& stores, Selected kind,
                              std::span<const store::RecordId> ids, platform::FileTime now);

/// Makes the records paid ones of that date, or paid ones billed again, whatever they are.
[[nodiscard]] bool markPaid(platform::Transaction& transaction, store::Stores& stores, Selected kind,
                            std::span<const store::RecordId> ids, platform::FileTime paidDate, platform::FileTime now);
[[nodiscard]] bool markUnpaid(platform::Transaction& transaction, store::Stores& stores, Selected kind,
                              std::span<const store::RecordId> ids, platform::FileTime now);

/// Deletes the records.
[[nodiscard]] bool deleteRecords(platform::Transaction& transaction, store::Stores& stores, Selected kind,
                                 std::span<const store::RecordId> ids);

} // namespace hourwright::billing
