#include "billing/new_entry.h"

#include "billing/duration.h"
#include "platform/calendar.h"

namespace hourwright::billing {

namespace {

store::EntryStatus statusOf(const NewEntryDefaults& defaults) {
    return defaults.billable ? store::EntryStatus::billable : store::EntryStatus::nonBillable;
}

} // namespace

store::TimeEntry newTimeEntry(const NewEntryDefaults& defaults, const platform::SystemTime& today,
                              const store::TimeEntry* last) {
    store::TimeEntry entry;
    store::setDateWithoutStart(entry, today);
    entry.status = statusOf(defaults);
    entry.currency = defaults.currency;
    if (last) {
        entry.client = last->client;
        entry.project = last->project;
    }
    return entry;
}

void placeEntry(store::TimeEntry& entry, const platform::SystemTime& day,
                const std::optional<platform::SystemTime>& start, std::optional<int> minutes, const TimeRules& rules) {
    platform::SystemTime time = day;
    platform::clearTime(time);
    if (start) {
        time.hour = start->hour;
        time.minute = start->minute;
        store::setDateAndStart(entry, time);
    } else {
        store::setDateWithoutStart(entry, time);
    }
    platform::SystemTime end = time;
    if (minutes && *minutes > 0 && platform::addMinutes(end, *minutes))
        entry.duration = durationFromStartEnd(time, end, 0.0, rules).value_or(entry.duration);
}

store::ExpenseEntry newExpense(store::ExpenseType type, const NewEntryDefaults& defaults,
                               const platform::SystemTime& today) {
    store::ExpenseEntry expense;
    expense.type = type;
    platform::SystemTime day = today;
    platform::clearTime(day);
    expense.date = platform::toFileTime(day).value_or(platform::FileTime{});
    expense.status = statusOf(defaults);
    expense.currency = defaults.currency;
    return expense;
}

} // namespace hourwright::billing
