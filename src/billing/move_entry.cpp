#include "billing/move_entry.h"

#include "billing/duration.h"

namespace hourwright::billing {

namespace {

using platform::SystemTime;
using store::TimeEntry;

SystemTime onDay(const SystemTime& day, const SystemTime& time) {
    SystemTime result{.year = day.year, .month = day.month, .day = day.day};
    result.hour = time.hour;
    result.minute = time.minute;
    return result;
}

std::optional<std::int32_t> durationUntil(const SystemTime& start, const SystemTime& end, const TimeRules& rules,
                                          const TimeEntry& entry) {
    const auto from = platform::toFileTime(start);
    const auto to = platform::toFileTime(onDay(end, end));
    if (!from || !to || *to < *from)
        return std::nullopt;
    return durationFromStartEnd(start, onDay(end, end), breakHoursOf(entry), rules);
}

} // namespace

std::optional<DraftRefusal> placeEntry(const EntryPlace& place, const TimeRules& rules, TimeEntry& entry) {
    TimeEntry placed = entry;
    if (place.end) {
        const auto duration =
            place.start ? durationUntil(onDay(place.day, *place.start), *place.end, rules, entry) : std::nullopt;
        if (!duration)
            return cannotHold(DraftField::end);
        placed.duration = *duration;
    }
    const bool dated = place.start ? store::setDateAndStart(placed, onDay(place.day, *place.start))
                                   : store::setDateWithoutStart(placed, place.day);
    if (!dated)
        return cannotHold(DraftField::date);
    entry = std::move(placed);
    return {};
}

bool placeStoredEntry(platform::Transaction& transaction, store::Stores& stores, store::RecordId id,
                      const EntryPlace& place, const TimeRules& rules, platform::FileTime now) {
    auto& entries = stores.entries();
    TimeEntry entry;
    if (entries.seek(platform::Seek::toId(id)) == store::RecordId::none)
        return entries.refuse(platform::PlatformError::noMoreItems);
    if (store::readTimeEntry(entries, entry) != store::ReadResult::ok)
        return false;
    if (const auto refusal = placeEntry(place, rules, entry))
        return entries.refuse(refusal->error);
    entry.modified = now;
    return store::updateTimeEntry(transaction, entries, entry);
}

} // namespace hourwright::billing
