#pragma once

#include "platform/utf.h"
#include "store/date_walk.h"
#include "store/time_entry.h"
#include "support/store_fixture.h"

#include <vector>

namespace hourwright::test {

inline platform::FileTime instant(const platform::SystemTime& time) {
    return toFileTime(time).value();
}

/// Midnight of a day of November 2026.
inline platform::FileTime november(std::uint16_t day) {
    return instant({.year = 2026, .month = 11, .day = day});
}

/// The last instant before the next day.
inline platform::FileTime endOfNovember(std::uint16_t day) {
    return {november(static_cast<std::uint16_t>(day + 1)).ticks - 1};
}

/// From the beginning of the first day to the end of the last, in November 2026.
inline store::DateRange novemberDays(std::uint16_t first, std::uint16_t last) {
    return {.after = platform::FileTime{november(first).ticks - 1}, .last = endOfNovember(last)};
}

/// A store into which entries are put and out of which all are read again.
class BillingFixture : public StoreFixture {
protected:
    store::RecordId insert(store::TimeEntry entry) {
        change([&](auto& transaction) { ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), entry)); });
        return entry.id;
    }

    std::vector<store::TimeEntry> allEntries() {
        std::vector<store::TimeEntry> entries;
        store::DateWalk walk(stores().entries(), {});
        for (store::TimeEntry entry; walk.next(entry) == store::ReadResult::ok;)
            entries.push_back(entry);
        return entries;
    }
};

} // namespace hourwright::test
