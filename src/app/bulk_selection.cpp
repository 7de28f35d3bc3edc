#include "app/bulk_selection.h"

#include <tuple>

namespace hourwright::app {

namespace {

platform::SystemTime dayOf(platform::FileTime instant) {
    auto day = platform::toSystemTime(instant).value_or(platform::SystemTime{});
    platform::clearTime(day);
    return day;
}

std::function<bool(const store::TimeEntry&)> accepting(const EntryFilter& filter, const platform::Locale& locale) {
    return [matcher = EntryMatcher(filter, locale)](const store::TimeEntry& entry) { return matcher.matches(entry); };
}

} // namespace

billing::EntrySelection selectionOf(const EntryFilter& criteria, const platform::Locale& userLocale) {
    const FilterRange range = filterRange(criteria);
    billing::EntrySelection selection;
    if (range.first.ticks > 0)
        selection.range.after = platform::FileTime{range.first.ticks - 1};
    selection.range.last = range.last;
    selection.accepts = accepting(criteria, userLocale);
    return selection;
}

billing::EntrySelection selectionOf(const Period& period, const EntryFilter& filter,
                                    const platform::Locale& userLocale) {
    return {.range = period.dateRange(), .accepts = accepting(filter, userLocale)};
}

platform::SystemTime firstDayOf(const Period& period) {
    return dayOf(period.start());
}

platform::SystemTime lastDayOf(const Period& period) {
    return dayOf(period.end());
}

EntryFilter newCriteria(const Period& period, BulkKind kind) {
    EntryFilter criteria;
    criteria.rangeStart = firstDayOf(period);
    criteria.rangeEnd = lastDayOf(period);
    if (kind == BulkKind::remove)
        return criteria;
    criteria.showNonBillable = false;
    criteria.showPaid = false;
    criteria.showBilled = kind == BulkKind::markPaid;
    return criteria;
}

platform::FileTime paidInstant(const platform::SystemTime& day, const platform::SystemTime& now) {
    const bool today = rangeIsInOrder(day, now) && rangeIsInOrder(now, day);
    return platform::toFileTime(today ? now : day).value_or(platform::FileTime{});
}

bool rangeIsInOrder(const platform::SystemTime& firstDay, const platform::SystemTime& lastDay) {
    const auto key = [](const platform::SystemTime& day) { return std::tuple(day.year, day.month, day.day); };
    return key(firstDay) <= key(lastDay);
}

} // namespace hourwright::app
