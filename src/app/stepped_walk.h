#pragma once

#include "app/list_record.h"

#include <utility>
#include <vector>

namespace hourwright::app {

/// A walk over a range in steps, each of which sees the store anew.
template<typename Record>
class SteppedWalk {
public:
    SteppedWalk(store::RecordStore& store, store::DateRange range, std::vector<platform::PropertyId> properties)
        : store_(store), range_(range), properties_(std::move(properties)) {}

    /// Visits so many further records; true when there may be more.
    template<typename Visit>
    bool go(std::size_t limit, Visit visit) {
        store::DateWalk records(store_, rest(), properties_);
        Record record;
        std::size_t seen = 0;
        while (seen < limit) {
            if (records.next(record) != store::ReadResult::ok)
                return false;
            const platform::FileTime stored = storedDate(records);
            if (lastId_ != store::RecordId::none && stored == lastDate_ && record.id <= lastId_)
                continue;
            lastDate_ = stored;
            lastId_ = record.id;
            ++seen;
            visit(record);
        }
        return true;
    }

private:
    // Where the walk goes on: one tick before the last row, whose equals on that instant follow by their ids.
    [[nodiscard]] store::DateRange rest() const {
        store::DateRange range = range_;
        if (lastId_ != store::RecordId::none && lastDate_.ticks > 0)
            range.after = platform::FileTime{lastDate_.ticks - 1};
        return range;
    }

    // The date that the store sorts by; that of the record may have an old start time put into it.
    [[nodiscard]] static platform::FileTime storedDate(const store::DateWalk& records) {
        const auto* const date = records.properties().find(dateOfRecord);
        return date != nullptr ? date->fileTime() : platform::FileTime{};
    }

    store::RecordStore& store_;
    store::DateRange range_;
    std::vector<platform::PropertyId> properties_;
    platform::FileTime lastDate_{};
    store::RecordId lastId_ = store::RecordId::none;
};

/// The properties of a record that its cells, filters and totals depend on. `wants` chooses among the texts.
template<typename Record, typename Wants>
std::vector<platform::PropertyId> propertiesOf(Wants wants) {
    using Traits = ListRecord<Record>;
    std::vector<platform::PropertyId> properties(Traits::always.begin(), Traits::always.end());
    properties.emplace_back(Traits::currency, platform::ValueType::text);
    for (const auto& text : Traits::texts)
        if (wants(text))
            properties.emplace_back(text.field, platform::ValueType::text);
    return properties;
}

} // namespace hourwright::app
