#include "billing/timer_completion.h"

#include "billing/duration.h"
#include "billing/stored_number.h"
#include "billing/typed_text.h"

#include <algorithm>

namespace hourwright::billing {

namespace {

constexpr double secondsPerHour = 3600.0;

store::TimeEntry seededEntry(const EntryTimer& timer, const TimerCompletion& completion) {
    if (!timer.source())
        return newTimeEntry(completion.defaults, timer.start());
    store::TimeEntry entry = *timer.source();
    entry.id = store::RecordId::none;
    entry.flags = store::flagsNew;
    entry.modified = {};
    entry.breakTime = 0;
    return entry;
}

} // namespace

store::TimeEntry completedEntry(const EntryTimer& timer, const TimerCompletion& completion) {
    store::TimeEntry entry = seededEntry(timer, completion);
    store::setDateAndStart(entry, timer.start());
    entry.duration = durationFromHours(timer.duration() / secondsPerHour, completion.rules).value_or(maxStoredHours);
    if (completion.breakOption == breakManually || completion.breakOption == breakFromTimer)
        entry.breakTime = breakFromHours(timer.breakTime() / secondsPerHour).value_or(maxStoredHours);
    entry.note = timer.note().empty() ? std::vector<std::byte>{} : completion.encodeNote(timer.note());
    entry.client = timer.names().client;
    entry.project = timer.names().project;
    entry.phase = timer.names().phase;
    entry.task = timer.names().task;
    return entry;
}

bool noteIsTooLarge(const EntryTimer& timer) {
    return noteCharacters(timer.note()) >= noteTooLargeFrom;
}

void trim(EntryTimer& timer, std::int64_t seconds) {
    timer.setDuration(static_cast<std::int32_t>(std::max<std::int64_t>(timer.duration() - seconds, 0)));
}

EntryTimer splitAtGap(EntryTimer& timer, std::int64_t gapSeconds, const platform::Clock& clock) {
    EntryTimer before = timer;
    trim(before, gapSeconds);
    before.pause();
    EntryTimer after;
    after.startNow(clock);
    after.setNames(timer.names());
    after.setNote(timer.note());
    after.setSource(timer.source());
    timer = after;
    return before;
}

} // namespace hourwright::billing
