#include "billing/copy_entry.h"

#include "billing/duration.h"
#include "billing/numeric_test.h"

namespace hourwright::billing {

namespace {

using platform::FileTime;
using platform::SystemTime;
using store::TimeEntry;

constexpr std::uint16_t sunday = 0;
constexpr std::uint16_t monday = 1;
constexpr std::uint16_t saturday = 6;

std::optional<CopyRefusal> takeDuration(TimeEntry& copy, const CopyOrder& order, const TimeRules& rules) {
    if (!order.duration)
        return {};
    if (!passesNumericTest(*order.duration))
        return CopyRefusal{CopyField::duration, resources::StringId::numericOnly};
    return setDurationFromText(copy, *order.duration, rules) ? std::optional<CopyRefusal>{}
                                                             : cannotHold(CopyField::duration);
}

// The first instant of a day.
std::optional<FileTime> midnight(SystemTime day) {
    platform::clearTime(day);
    return platform::toFileTime(day);
}

// The days on which copies are to be made, as their first instants.
class Days {
public:
    // Begins on the day after the entry's.
    explicit Days(const SystemTime& entryDay) : cursor_(entryDay) { forward(); }

    void restOfWeek(std::uint16_t stopDay) {
        for (; inCalendar_ && cursor_.dayOfWeek != stopDay; forward())
            add();
    }

    void until(FileTime last, bool includeWeekend) {
        for (; inCalendar_ && midnight(cursor_) <= last; forward())
            if (includeWeekend || (cursor_.dayOfWeek != saturday && cursor_.dayOfWeek != sunday))
                add();
    }

    [[nodiscard]] const std::vector<FileTime>& found() const { return found_; }

private:
    void forward() { inCalendar_ = platform::addDays(cursor_, 1); }
    void add() {
        if (const auto day = midnight(cursor_))
            found_.push_back(*day);
    }

    SystemTime cursor_;
    bool inCalendar_ = true;
    std::vector<FileTime> found_;
};

std::uint16_t stopDayOf(const CopyOrder& order, const CopyRules& rules) {
    if (!order.includeWeekend)
        return saturday;
    return rules.weekStart == platform::WeekStart::monday ? monday : sunday;
}

bool isTooFar(FileTime from, FileTime to) {
    return to > from && (to.ticks - from.ticks) / platform::ticksPerDay > std::uint64_t{maxCopyDays};
}

// The days of the order in `days`, or why there are none.
std::optional<CopyRefusal> findDays(const SystemTime& entryDay, FileTime entryMidnight, const CopyOrder& order,
                                    const CopyRules& rules, std::vector<FileTime>& days) {
    Days walk(entryDay);
    if (order.target == CopyTarget::restOfWeek) {
        walk.restOfWeek(stopDayOf(order, rules));
        days = walk.found();
        return {};
    }
    const auto chosen = midnight(order.date);
    const CopyField field = order.target == CopyTarget::date ? CopyField::date : CopyField::endDate;
    if (!chosen || (field == CopyField::endDate && isTooFar(entryMidnight, *chosen)))
        return cannotHold(field);
    if (field == CopyField::date) {
        days = {*chosen};
        return {};
    }
    walk.until(*chosen, order.includeWeekend);
    days = walk.found();
    return {};
}

} // namespace

std::optional<CopyRefusal> makeCopies(const TimeEntry& entry, const CopyOrder& order, const CopyRules& rules,
                                      EntryCopies& copies) {
    TimeEntry copy = entry;
    copy.id = store::RecordId::none;
    copy.flags = store::flagsNew;
    copy.modified = rules.now;
    if (const auto refusal = takeDuration(copy, order, rules.time))
        return refusal;
    const auto entryDay = platform::toSystemTime(entry.date);
    const auto entryMidnight = entryDay ? midnight(*entryDay) : std::nullopt;
    if (!entryMidnight)
        return cannotHold(CopyField::date);
    std::vector<FileTime> days;
    if (const auto refusal = findDays(*entryDay, *entryMidnight, order, rules, days))
        return refusal;
    for (FileTime& day : days)
        day.ticks += entry.date.ticks - entryMidnight->ticks;
    copies = {std::move(copy), std::move(days)};
    return {};
}

std::optional<std::vector<store::RecordId>> saveCopies(platform::Transaction& transaction, store::Stores& stores,
                                                       const EntryCopies& copies) {
    std::vector<store::RecordId> ids;
    TimeEntry copy = copies.entry;
    for (const FileTime date : copies.dates) {
        copy.date = date;
        if (!store::insertTimeEntry(transaction, stores.entries(), copy))
            return std::nullopt;
        ids.push_back(copy.id);
    }
    return ids;
}

} // namespace hourwright::billing
