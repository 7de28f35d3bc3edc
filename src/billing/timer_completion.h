#pragma once

#include "billing/entry_timer.h"
#include "billing/new_entry.h"
#include "billing/time_rules.h"
#include "billing/timer_set.h"

#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace hourwright::billing {

/// Makes the bytes of a note from its plain text.
using NoteEncoder = std::function<std::vector<std::byte>(std::u16string_view)>;

/// What a timer is completed by.
struct TimerCompletion {
    TimeRules rules;
    BreakOption breakOption = breakManually;
    NewEntryDefaults defaults;
    NoteEncoder encodeNote;
};

/// The entry that a timer has become: a new record, with the fields of the entry it was started from, if any, else with
/// the defaults of new entries. Date and start are the timer's, duration and break its seconds by the rules of hours
/// (more than a field holds is its most), note and names its own. The timer stays as it is.
[[nodiscard]] store::TimeEntry completedEntry(const EntryTimer& timer, const TimerCompletion& completion);

/// True when the timer's note is to be announced as too large before the editor opens.
[[nodiscard]] bool noteIsTooLarge(const EntryTimer& timer);

/// Takes a stretch of time off a running timer, at most what it has.
void trim(EntryTimer& timer, std::int64_t seconds);

/// Splits a running timer at a gap: what ran before it is returned as a timer of its own, and the timer goes on as one
/// that started when the gap ended, `now`, with the names, note and source it had. The gap belongs to neither.
[[nodiscard]] EntryTimer splitAtGap(EntryTimer& timer, std::int64_t gapSeconds, const platform::Clock& clock);

/// How long a timer may run before it is asked about: a day.
inline constexpr std::int32_t longestUnquestioned = 24 * 60 * 60;

} // namespace hourwright::billing
