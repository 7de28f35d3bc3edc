#include "billing/new_entry.h"

#include "billing/duration.h"
#include "platform/calendar.h"
#include "store/date_walk.h"

#include <limits>

namespace hourwright::billing {

namespace {

store::EntryStatus statusOf(const NewEntryDefaults& defaults) {
    return defaults.billable ? store::EntryStatus::billable : store::EntryStatus::nonBillable;
}

// The first instant of a day.
platform::FileTime dayOf(platform::SystemTime day) {
    platform::clearTime(day);
    return platform::toFileTime(day).value_or(platform::FileTime{});
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
                               const platform::SystemTime& today, const store::ExpenseEntry* lastMileage) {
    store::ExpenseEntry expense;
    expense.type = type;
    expense.date = dayOf(today);
    expense.status = statusOf(defaults);
    expense.currency = defaults.currency;
    if (type == store::ExpenseType::mileage && lastMileage != nullptr) {
        const std::uint64_t end = store::endOdometer(*lastMileage);
        expense.startOdometer = end <= std::numeric_limits<std::uint32_t>::max() ? static_cast<std::uint32_t>(end) : 0;
        expense.amount = lastMileage->amount;
    }
    return expense;
}

store::ExpenseEntry copyOf(const store::ExpenseEntry& expense, const platform::SystemTime& today) {
    store::ExpenseEntry copy = expense;
    copy.id = store::RecordId::none;
    copy.flags = store::flagsNew;
    copy.date = dayOf(today);
    copy.paidDate = {};
    if (copy.status != store::EntryStatus::nonBillable)
        copy.status = store::EntryStatus::billable;
    return copy;
}

std::optional<store::ExpenseEntry> lastMileage(store::RecordStore& expenses) {
    store::DateWalk walk(expenses, {});
    std::optional<store::ExpenseEntry> last;
    store::ExpenseEntry expense;
    auto result = walk.next(expense);
    for (; result == store::ReadResult::ok; result = walk.next(expense)) {
        if (expense.type != store::ExpenseType::mileage)
            continue;
        const bool sameDay = last && last->date == expense.date;
        if (!sameDay || store::endOdometer(expense) >= store::endOdometer(*last))
            last = expense;
    }
    return result == store::ReadResult::noMore ? last : std::nullopt;
}

} // namespace hourwright::billing
