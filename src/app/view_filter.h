#pragma once

#include "platform/file_time.h"
#include "store/entry_types.h"

#include <cstdint>

namespace hourwright::app {

/// What the filters of time entries and expenses have in common: an optional range of dates and the billing statuses
/// that are shown. A new one passes everything.
struct ViewFilter {
    platform::SystemTime rangeStart{}; ///< first day; month 0: no range
    platform::SystemTime rangeEnd{};   ///< last day, all of which counts
    bool showPaid = true;
    bool showNonBillable = true;
    bool showBillable = true;
    bool showBilled = true;

    [[nodiscard]] bool hasRange() const { return rangeStart.month != 0; }

    /// True when entries of this status are shown; a number that is no status always is.
    [[nodiscard]] bool shows(store::EntryStatus status) const;

    /// Shows or hides entries of one status.
    void show(store::EntryStatus status, bool shown);

    /// The statuses of "Show Unpaid Only": all but Paid. The other conditions stay.
    void showUnpaidOnly();

    /// The four statuses as the bits that are stored, and back; bits of no status do not count.
    [[nodiscard]] std::uint32_t statusFlags() const;
    void setStatusFlags(std::uint32_t flags);

    friend bool operator==(const ViewFilter&, const ViewFilter&) = default;
};

/// The instants that a filter's range covers, both included: from the beginning of its first day to the last tick of
/// its last. No range, and a day that does not exist, bound nothing.
struct FilterRange {
    platform::FileTime first{0};
    platform::FileTime last{UINT64_MAX};

    [[nodiscard]] bool contains(platform::FileTime instant) const { return first <= instant && instant <= last; }
    friend bool operator==(const FilterRange&, const FilterRange&) = default;
};
[[nodiscard]] FilterRange filterRange(const ViewFilter& filter);

} // namespace hourwright::app
