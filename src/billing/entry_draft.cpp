#include "billing/entry_draft.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "billing/numeric_test.h"

#include <array>

namespace hourwright::billing {

namespace {

using resources::StringId;
using store::TimeEntry;

using Refusal = std::optional<DraftRefusal>;

// A draft on its way into a copy of the entry.
struct Work {
    const EntryDraft& draft;
    const TimeRules& rules;
    TimeEntry entry;
};

Refusal refuse(DraftField field, StringId message) {
    return DraftRefusal{field, message};
}

Refusal failWrite(DraftField field) {
    return DraftRefusal{field, StringId::error, platform::PlatformError::invalidParameter};
}

struct TextField {
    DraftField field;
    std::optional<std::u16string> EntryDraft::*typed;
    std::u16string TimeEntry::*stored;
};

constexpr std::array generalTexts{
    TextField{DraftField::client, &EntryDraft::client, &TimeEntry::client},
    TextField{DraftField::project, &EntryDraft::project, &TimeEntry::project},
    TextField{DraftField::phase, &EntryDraft::phase, &TimeEntry::phase},
    TextField{DraftField::task, &EntryDraft::task, &TimeEntry::task},
};

constexpr std::array otherTexts{
    TextField{DraftField::billTo, &EntryDraft::billTo, &TimeEntry::billTo},
    TextField{DraftField::currency, &EntryDraft::currency, &TimeEntry::currency},
    TextField{DraftField::custom1, &EntryDraft::custom1, &TimeEntry::custom1},
    TextField{DraftField::custom2, &EntryDraft::custom2, &TimeEntry::custom2},
    TextField{DraftField::custom3, &EntryDraft::custom3, &TimeEntry::custom3},
};

template<std::size_t count>
Refusal takeTexts(Work& work, const std::array<TextField, count>& fields) {
    for (const TextField& field : fields) {
        const auto& typed = work.draft.*field.typed;
        if (!typed)
            continue;
        if (typed->size() > maxTextLength)
            return failWrite(field.field);
        work.entry.*field.stored = *typed;
    }
    return {};
}

// The day of one instant with the hour and minute of another.
platform::SystemTime combine(const platform::SystemTime& day, const platform::SystemTime& time) {
    return {.year = day.year, .month = day.month, .day = day.day, .hour = time.hour, .minute = time.minute};
}

// The date keeps the entry's start time, a start time keeps the entry's date.
Refusal takeDateAndStart(Work& work) {
    const EntryDraft& draft = work.draft;
    if (!draft.date && !draft.start && !draft.withoutStart)
        return {};
    const auto old = platform::toSystemTime(work.entry.date);
    if (!draft.date && !old)
        return failWrite(DraftField::date);
    const platform::SystemTime day = draft.date ? *draft.date : *old;
    const bool keepsStart = !draft.start && !draft.withoutStart && old && store::hasStart(work.entry);
    bool valid = false;
    if (draft.start || keepsStart)
        valid = store::setDateAndStart(work.entry, combine(day, draft.start ? *draft.start : *old));
    else
        valid = store::setDateWithoutStart(work.entry, day);
    return valid ? Refusal{} : failWrite(DraftField::date);
}

Refusal takeGeneralTexts(Work& work) {
    return takeTexts(work, generalTexts);
}

Refusal requireTask(Work& work) {
    return work.entry.task.empty() ? refuse(DraftField::task, StringId::taskMissing) : Refusal{};
}

Refusal testDuration(Work& work) {
    const auto& typed = work.draft.duration;
    return typed && !passesNumericTest(*typed) ? refuse(DraftField::duration, StringId::numericOnly) : Refusal{};
}

Refusal takeDuration(Work& work) {
    const auto& typed = work.draft.duration;
    if (!typed || work.draft.end)
        return {};
    if (typed->empty())
        return refuse(DraftField::duration, StringId::durationMissing);
    return setDurationFromText(work.entry, *typed, work.rules) ? Refusal{} : failWrite(DraftField::duration);
}

Refusal takeBreak(Work& work) {
    const auto& typed = work.draft.breakTime;
    if (!typed)
        return {};
    if (!passesNumericTest(*typed))
        return refuse(DraftField::breakTime, StringId::numericOnly);
    return setBreakFromText(work.entry, *typed) ? Refusal{} : failWrite(DraftField::breakTime);
}

Refusal takeEnd(Work& work) {
    if (!work.draft.end)
        return {};
    const auto start = platform::toSystemTime(work.entry.date);
    if (!start || !store::hasStart(work.entry))
        return failWrite(DraftField::end);
    const auto duration =
        durationFromStartEnd(*start, combine(*start, *work.draft.end), breakHoursOf(work.entry), work.rules);
    if (!duration)
        return failWrite(DraftField::end);
    work.entry.duration = *duration;
    return {};
}

Refusal takeRate(Work& work) {
    const auto& typed = work.draft.rate;
    if (!typed)
        return {};
    if (!passesNumericTest(*typed))
        return refuse(DraftField::rate, StringId::rateInvalid);
    const auto rate = rateFromText(*typed);
    if (!rate)
        return failWrite(DraftField::rate);
    work.entry.rate = *rate;
    return {};
}

Refusal takeChoices(Work& work) {
    const EntryDraft& draft = work.draft;
    work.entry.status = draft.status.value_or(work.entry.status);
    work.entry.rateType = draft.rateType.value_or(work.entry.rateType);
    work.entry.paidDate = draft.paidDate.value_or(work.entry.paidDate);
    return {};
}

Refusal takeOtherTexts(Work& work) {
    return takeTexts(work, otherTexts);
}

Refusal takeNote(Work& work) {
    const auto& note = work.draft.note;
    if (!note)
        return {};
    if (note->characters >= noteTooLargeFrom)
        return refuse(DraftField::note, StringId::noteTooLarge);
    work.entry.note = note->blob;
    return {};
}

// The order of the checks.
constexpr std::array<Refusal (*)(Work&), 11> steps{
    takeDateAndStart, takeGeneralTexts, requireTask, testDuration,   takeDuration, takeBreak,
    takeEnd,          takeRate,         takeChoices, takeOtherTexts, takeNote,
};

} // namespace

std::optional<DraftRefusal> applyDraft(const EntryDraft& draft, const TimeRules& rules, TimeEntry& entry) {
    Work work{draft, rules, entry};
    for (const auto step : steps)
        if (Refusal refusal = step(work))
            return refusal;
    entry = std::move(work.entry);
    return {};
}

} // namespace hourwright::billing
