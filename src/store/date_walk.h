#pragma once

#include "store/expense_entry.h"
#include "store/record_store.h"
#include "store/time_entry.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace hourwright::store {

/// The instants that a walk covers: records dated strictly later than `after` (all from the first one when absent)
/// and not later than `last` (all to the end, undated records included, when absent).
struct DateRange {
    std::optional<platform::FileTime> after;
    std::optional<platform::FileTime> last;

    friend bool operator==(const DateRange&, const DateRange&) = default;
};

/// A walk over the records of an entry or expense store in date order. It is the only one in the program: lists,
/// exports, summaries and bulk changes use it. While it lives it sees one state of the store.
///
///        after              last
///     -----o==================|-----------> date        o not included, | included
class DateWalk {
public:
    /// Walks the store's records; with ids given, reads only those properties (the date is always read).
    DateWalk(RecordStore& store, const DateRange& range, std::span<const platform::PropertyId> wanted = {});

    /// Goes to the first or next record and reads it. `noMore` at the end of the range.
    [[nodiscard]] ReadResult next();
    /// The same, into a record value.
    [[nodiscard]] ReadResult next(TimeEntry& out);
    [[nodiscard]] ReadResult next(ExpenseEntry& out);

    [[nodiscard]] RecordId id() const { return store_.current(); }
    [[nodiscard]] const platform::PropertyBuffer& properties() const { return properties_; }

private:
    [[nodiscard]] RecordId advance();

    RecordStore& store_;
    DateRange range_;
    std::vector<platform::PropertyId> wanted_;
    std::unique_ptr<platform::Snapshot> snapshot_;
    platform::PropertyBuffer properties_;
    bool started_ = false;
};

} // namespace hourwright::store
