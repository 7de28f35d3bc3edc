#pragma once

#include "store/expense_entry.h"
#include "store/record_store.h"
#include "store/time_entry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace hourwright::store {

/// The instants that a walk covers: records dated strictly later than `after` (all from the first one when absent)
/// and not later than `last` (all to the end, undated records included, when absent).
struct DateRange {
    std::optional<platform::FileTime> after;
    std::optional<platform::FileTime> last;

    friend bool operator==(const DateRange&, const DateRange&) = default;
};

/// A text that records must have, compared exactly; the empty text is that of a record without the property.
struct TextCondition {
    std::uint16_t field = 0;
    std::u16string text;
};

/// What a walk is for. One that is for changing has the whole of a record at hand when it is written.
enum class WalkPurpose : std::uint8_t { reading, changing };

/// A walk over the records of an entry or expense store in date order. It is the only one in the program: lists,
/// exports, summaries and bulk changes use it. While it lives it sees one state of the store.
///
///        after              last
///     -----o==================|-----------> date        o not included, | included
class DateWalk {
public:
    /// Walks the store's records; with ids given, reads only those properties (the date is always read). Records that
    /// do not meet all conditions are passed over, which costs less than reading them.
    DateWalk(RecordStore& store, const DateRange& range, std::span<const platform::PropertyId> wanted = {},
             std::vector<TextCondition> conditions = {}, WalkPurpose purpose = WalkPurpose::reading);

    /// Goes to the first or next record and reads it. `noMore` at the end of the range.
    [[nodiscard]] ReadResult next();
    /// The same, into a record value.
    [[nodiscard]] ReadResult next(TimeEntry& out);
    [[nodiscard]] ReadResult next(ExpenseEntry& out);

    [[nodiscard]] RecordId id() const { return store_.current(); }
    [[nodiscard]] const platform::PropertyBuffer& properties() const { return properties_; }

private:
    void want(platform::PropertyId id);
    [[nodiscard]] RecordId advance();
    [[nodiscard]] ReadResult readNext();
    [[nodiscard]] bool meetsConditions() const;

    RecordStore& store_;
    DateRange range_;
    std::vector<platform::PropertyId> wanted_;
    std::vector<TextCondition> conditions_;
    WalkPurpose purpose_;
    std::unique_ptr<platform::Snapshot> snapshot_;
    platform::PropertyBuffer properties_;
    bool started_ = false;
};

} // namespace hourwright::store
