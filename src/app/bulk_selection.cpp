#include "app/bulk_selection.h"

#include "app/list_record.h"

#include <tuple>

namespace hourwright::app {

namespace {

platform::SystemTime dayOf(platform::FileTime instant) {
    auto day = platform::toSystemTime(instant).value_or(platform::SystemTime{});
    platform::clearTime(day);
    return day;
}

// What a filter without texts looks at, those of earlier versions behind what they replace.
constexpr std::array withoutTexts{
    dateOfRecord,
    ui2(store::field::status),
    ui2(store::field::rateType),
    flag(store::field::oldBillable),
    flag(store::field::oldBilled),
    platform::PropertyId{store::field::oldStart, platform::ValueType::fileTime},
};

// The properties of the fields that the filter looks at.
std::vector<platform::PropertyId> propertiesOf(const EntryFilter& filter) {
    using List = ListRecord<store::TimeEntry>;
    std::vector<platform::PropertyId> properties(withoutTexts.begin(), withoutTexts.end());
    for (const auto& text : List::texts)
        if (!(filter.*text.wanted).empty())
            properties.emplace_back(text.field, platform::ValueType::text);
    if (!filter.currency.empty())
        properties.emplace_back(List::currency, platform::ValueType::text);
    return properties;
}

billing::EntrySelection selected(const store::DateRange& range, const EntryFilter& filter,
                                 const platform::Locale& locale) {
    return {.range = range,
            .accepts = [matcher = EntryMatcher(filter, locale)](
                           const store::TimeEntry& entry) { return matcher.matches(entry); },
            .looksAt = propertiesOf(filter)};
}

} // namespace

billing::EntrySelection selectionOf(const EntryFilter& criteria, const platform::Locale& userLocale) {
    const FilterRange range = filterRange(criteria);
    store::DateRange dates{.last = range.last};
    if (range.first.ticks > 0)
        dates.after = platform::FileTime{range.first.ticks - 1};
    return selected(dates, criteria, userLocale);
}

billing::EntrySelection selectionOf(const Period& period, const EntryFilter& filter,
                                    const platform::Locale& userLocale) {
    return selected(period.dateRange(), filter, userLocale);
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
