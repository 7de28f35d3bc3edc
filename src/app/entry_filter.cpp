#include "app/entry_filter.h"

#include "app/stored_filter.h"

namespace hourwright::app {

namespace {

using store::TimeEntry;

constexpr std::optional<SavePlace> never;

constexpr std::array<FilterText<EntryFilter, TimeEntry>, 9> texts{{
    {u"fClient", &EntryFilter::client, &TimeEntry::client, 0, 0},
    {u"fProject", &EntryFilter::project, &TimeEntry::project, 1, 1},
    {u"fPhase", &EntryFilter::phase, &TimeEntry::phase, 2, 2},
    {u"fTask", &EntryFilter::task, &TimeEntry::task, 10, 3},
    {u"fBillTo", &EntryFilter::billTo, &TimeEntry::billTo, 7, 5},
    {u"fCurrency", &EntryFilter::currency, &TimeEntry::currency, 8, 4},
    {u"fCustom1", &EntryFilter::custom1, &TimeEntry::custom1, 3, never},
    {u"fCustom2", &EntryFilter::custom2, &TimeEntry::custom2, 4, never},
    {u"fCustom3", &EntryFilter::custom3, &TimeEntry::custom3, 5, never},
}};

constexpr std::array<FilterNumber<EntryFilter>, 2> numbers{{
    {u"fFlags", 6, [](const EntryFilter& f) { return f.statusFlags(); },
     [](EntryFilter& f, std::uint32_t flags) { f.setStatusFlags(flags); }},
    {u"fRateType", 9, [](const EntryFilter& f) { return f.rateType; },
     [](EntryFilter& f, std::uint32_t type) { f.rateType = type; }},
}};
static_assert(hasEveryPlaceOnce(texts, numbers));

} // namespace

EntryFilter EntryFilter::load(platform::Registry& registry) {
    return loadFilter<EntryFilter>(registry, texts, numbers);
}

bool EntryFilter::save(platform::Registry& registry) const {
    return saveFilter(registry, *this, texts, numbers);
}

std::vector<StoredFilterValue> EntryFilter::storedValues() const {
    return storedFilterValues(*this, texts, numbers);
}

bool EntryFilter::matches(const TimeEntry& entry, const platform::Locale& userLocale) const {
    return EntryMatcher(*this, userLocale).matches(entry);
}

EntryMatcher::EntryMatcher(const EntryFilter& filter, const platform::Locale& userLocale)
    : common_(filter), range_(filterRange(filter)), rateType_(filter.rateType), texts_(filter, texts, userLocale) {}

bool EntryMatcher::matches(const TimeEntry& entry) const {
    return range_.contains(entry.date) && texts_.hold(entry) && common_.shows(entry.status) &&
           (rateType_ == EntryFilter::anyRateType || rateType_ == static_cast<std::uint32_t>(entry.rateType));
}

} // namespace hourwright::app
