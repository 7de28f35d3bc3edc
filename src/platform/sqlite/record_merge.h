#pragma once

#include "platform/sqlite/journal_format.h"
#include "platform/sqlite/stored_value.h"

#include <span>
#include <string>
#include <vector>

namespace hourwright::platform::sqlite {

/// The largest number that a property of a type may hold; FILETIMEs are kept as signed 64-bit integers.
[[nodiscard]] std::uint64_t largestNumber(ValueType type);

/// A property list that is about to be written: brought into its stored form and, for an update, laid over the record
/// that is stored. Values are borrowed from the caller, from the row of the stored record and from this object.
class RecordMerge {
public:
    /// Takes the list over: texts end at a NUL, the last of several values for a property counts. False when a value
    /// does not fit its type.
    [[nodiscard]] bool take(std::span<const PropertyValue> properties);

    /// Makes the list that of a new record: its deletions are left out.
    void makeNew();
    /// Lays the list over a stored record: listed properties keep their place or are added at the end, deletions are
    /// removed.
    void layOver(std::span<const StoredValue> stored);

    /// The record as it will be, in stored order.
    [[nodiscard]] std::span<const StoredValue> values() const { return merged_; }
    /// The kind and the columns of the change: what `layOver` found to be different, or all values of a new record.
    [[nodiscard]] RecordChange& change() { return change_; }
    [[nodiscard]] bool changes(PropertyId id) const;

private:
    struct Given {
        PropertyValue value;
        bool used = false;
    };

    [[nodiscard]] Given* find(PropertyId id);
    [[nodiscard]] StoredValue encode(const PropertyValue& value);
    void replace(const StoredValue& stored, const PropertyValue& value);

    std::vector<Given> given_;
    std::vector<StoredValue> merged_;
    RecordChange change_;
    std::vector<std::string> texts_; // UTF-8 of given texts
    std::size_t textsUsed_ = 0;
};

} // namespace hourwright::platform::sqlite
