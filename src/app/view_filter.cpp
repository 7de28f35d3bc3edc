#include "app/view_filter.h"

#include "platform/calendar.h"

#include <array>

namespace hourwright::app {

namespace {

using store::EntryStatus;

struct StatusFlag {
    EntryStatus status;
    bool ViewFilter::*shown;
    std::uint32_t bit;
};

constexpr std::array<StatusFlag, 4> statusFlagTable{{
    {EntryStatus::billable, &ViewFilter::showBillable, 0x1},
    {EntryStatus::paid, &ViewFilter::showPaid, 0x4},
    {EntryStatus::nonBillable, &ViewFilter::showNonBillable, 0x10},
    {EntryStatus::billed, &ViewFilter::showBilled, 0x20},
}};

std::optional<platform::FileTime> midnightOf(platform::SystemTime day) {
    platform::clearTime(day);
    return platform::toFileTime(day);
}

} // namespace

bool ViewFilter::shows(EntryStatus status) const {
    for (const StatusFlag& flag : statusFlagTable)
        if (flag.status == status)
            return this->*flag.shown;
    return true;
}

void ViewFilter::show(EntryStatus status, bool shown) {
    for (const StatusFlag& flag : statusFlagTable)
        if (flag.status == status)
            this->*flag.shown = shown;
}

void ViewFilter::showUnpaidOnly() {
    for (const StatusFlag& flag : statusFlagTable)
        this->*flag.shown = flag.status != EntryStatus::paid;
}

std::uint32_t ViewFilter::statusFlags() const {
    std::uint32_t flags = 0;
    for (const StatusFlag& flag : statusFlagTable)
        flags |= this->*flag.shown ? flag.bit : 0;
    return flags;
}

void ViewFilter::setStatusFlags(std::uint32_t flags) {
    for (const StatusFlag& flag : statusFlagTable)
        this->*flag.shown = (flags & flag.bit) != 0;
}

FilterRange filterRange(const ViewFilter& filter) {
    FilterRange range;
    if (!filter.hasRange())
        return range;
    if (const auto first = midnightOf(filter.rangeStart))
        range.first = *first;
    if (const auto lastDay = midnightOf(filter.rangeEnd))
        range.last = platform::FileTime{lastDay->ticks + platform::ticksPerDay - 1};
    return range;
}

} // namespace hourwright::app
