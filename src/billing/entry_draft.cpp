#include "billing/entry_draft.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "billing/numeric_test.h"
#include "platform/number_text.h"

#include <array>
#include <string_view>

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

constexpr std::array billingTexts{
    TextField{DraftField::billTo, &EntryDraft::billTo, &TimeEntry::billTo},
    TextField{DraftField::currency, &EntryDraft::currency, &TimeEntry::currency},
};

constexpr std::array customTexts{
    TextField{DraftField::custom1, &EntryDraft::custom1, &TimeEntry::custom1},
    TextField{DraftField::custom2, &EntryDraft::custom2, &TimeEntry::custom2},
    TextField{DraftField::custom3, &EntryDraft::custom3, &TimeEntry::custom3},
};

template<std::size_t count>
Refusal takeTexts(Work& work, const std::array<TextField, count>& fields) {
    for (const TextField& field : fields)
        if (!takeText(work.draft.*field.typed, work.entry.*field.stored))
            return cannotHold(field.field);
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
        return cannotHold(DraftField::date);
    const platform::SystemTime day = draft.date ? *draft.date : *old;
    const bool keepsStart = !draft.start && old && store::hasStart(work.entry);
    bool valid = false;
    if (!draft.withoutStart && (draft.start || keepsStart))
        valid = store::setDateAndStart(work.entry, combine(day, draft.start ? *draft.start : *old));
    else
        valid = store::setDateWithoutStart(work.entry, day);
    return valid ? Refusal{} : Refusal{cannotHold(DraftField::date)};
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
    const auto read = std::u16string_view(*typed).substr(0, maxDurationText);
    return setDurationFromText(work.entry, read, work.rules) ? Refusal{} : Refusal{cannotHold(DraftField::duration)};
}

Refusal takeBreak(Work& work) {
    const auto& typed = work.draft.breakTime;
    if (!typed)
        return {};
    if (!passesNumericTest(*typed))
        return refuse(DraftField::breakTime, StringId::numericOnly);
    return setBreakFromText(work.entry, *typed) ? Refusal{} : Refusal{cannotHold(DraftField::breakTime)};
}

Refusal takeEnd(Work& work) {
    if (!work.draft.end)
        return {};
    const auto start = platform::toSystemTime(work.entry.date);
    if (!start || !store::hasStart(work.entry))
        return cannotHold(DraftField::end);
    const auto duration =
        durationFromStartEnd(*start, combine(*start, *work.draft.end), breakHoursOf(work.entry), work.rules);
    if (!duration)
        return cannotHold(DraftField::end);
    work.entry.duration = *duration;
    return {};
}

Refusal takeRate(Work& work) {
    const auto& typed = work.draft.rate;
    if (!typed) {
        work.entry.rate = work.draft.chosenRate.value_or(work.entry.rate);
        return {};
    }
    if (!passesNumericTest(*typed))
        return refuse(DraftField::rate, StringId::rateInvalid);
    const auto rate = rateFromText(*typed);
    if (!rate)
        return cannotHold(DraftField::rate);
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

Refusal takeBillingTexts(Work& work) {
    return takeTexts(work, billingTexts);
}

Refusal takeCustomTexts(Work& work) {
    return takeTexts(work, customTexts);
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

struct Step {
    DraftPage page;
    Refusal (*run)(Work&);
};

// The order of the checks.
constexpr std::array steps{
    Step{DraftPage::general, takeDateAndStart},
    Step{DraftPage::general, takeGeneralTexts},
    Step{DraftPage::general, requireTask},
    Step{DraftPage::general, testDuration},
    Step{DraftPage::general, takeDuration},
    Step{DraftPage::general, takeBreak},
    Step{DraftPage::general, takeEnd},
    Step{DraftPage::billing, takeRate},
    Step{DraftPage::billing, takeChoices},
    Step{DraftPage::billing, takeBillingTexts},
    Step{DraftPage::note, takeNote},
    Step{DraftPage::custom, takeCustomTexts},
};

Refusal runSteps(Work& work, std::optional<DraftPage> onlyPage) {
    for (const Step& step : steps)
        if (!onlyPage || step.page == *onlyPage)
            if (Refusal refusal = step.run(work))
                return refusal;
    return {};
}

Refusal applySteps(const EntryDraft& draft, const TimeRules& rules, TimeEntry& entry,
                   std::optional<DraftPage> onlyPage) {
    Work work{draft, rules, entry};
    if (Refusal refusal = runSteps(work, onlyPage))
        return refusal;
    entry = std::move(work.entry);
    return {};
}

std::u16string hundredthsText(std::int32_t stored) {
    std::u16string text;
    platform::appendHundredths(text, stored);
    return text;
}

} // namespace

DraftPage pageOf(DraftField field) {
    switch (field) {
    case DraftField::date:
    case DraftField::start:
    case DraftField::client:
    case DraftField::project:
    case DraftField::phase:
    case DraftField::task:
    case DraftField::duration:
    case DraftField::breakTime:
    case DraftField::end: return DraftPage::general;
    case DraftField::status:
    case DraftField::billTo:
    case DraftField::rate:
    case DraftField::rateType:
    case DraftField::currency:
    case DraftField::paidDate: return DraftPage::billing;
    case DraftField::note: return DraftPage::note;
    case DraftField::custom1:
    case DraftField::custom2:
    case DraftField::custom3: break;
    }
    return DraftPage::custom;
}

EntryDraft draftOf(const TimeEntry& entry, const platform::SystemTime& now) {
    EntryDraft draft;
    draft.date = platform::toSystemTime(entry.date);
    draft.withoutStart = !store::hasStart(entry);
    draft.start = draft.withoutStart ? now : draft.date;
    for (const auto& field : generalTexts)
        draft.*field.typed = entry.*field.stored;
    for (const auto& field : billingTexts)
        draft.*field.typed = entry.*field.stored;
    for (const auto& field : customTexts)
        draft.*field.typed = entry.*field.stored;
    const bool blank = entry.id == store::RecordId::none && entry.duration == 0;
    draft.duration = blank ? std::u16string{} : formatHours(entry);
    draft.breakTime = hundredthsText(entry.breakTime);
    draft.rate = hundredthsText(entry.rate);
    draft.status = entry.status;
    draft.rateType = entry.rateType;
    draft.paidDate = entry.paidDate;
    return draft;
}

EntryDraft touchedOnly(EntryDraft draft, const EntryDraft& opened) {
    const EntryDraft typed = draft;
    const auto dropEqual = [&](auto... members) {
        ((typed.*members == opened.*members ? (draft.*members).reset() : void()), ...);
    };
    dropEqual(&EntryDraft::date, &EntryDraft::start, &EntryDraft::end, &EntryDraft::client, &EntryDraft::project,
              &EntryDraft::phase, &EntryDraft::task, &EntryDraft::duration, &EntryDraft::breakTime, &EntryDraft::status,
              &EntryDraft::billTo, &EntryDraft::rate, &EntryDraft::chosenRate, &EntryDraft::rateType,
              &EntryDraft::currency, &EntryDraft::custom1, &EntryDraft::custom2, &EntryDraft::custom3,
              &EntryDraft::paidDate, &EntryDraft::note);
    if (opened.withoutStart && typed.withoutStart) { // what its date has of a time of day stays
        draft.withoutStart = false;
        draft.start.reset();
    }
    if (opened.withoutStart && !typed.withoutStart)
        draft.start = typed.start;
    if (typed.duration && typed.duration->empty())
        draft.duration = typed.duration;
    return draft;
}

std::optional<DraftRefusal> applyDraft(const EntryDraft& draft, const TimeRules& rules, TimeEntry& entry) {
    return applySteps(draft, rules, entry, {});
}

std::optional<DraftRefusal> applyPage(DraftPage page, const EntryDraft& draft, const TimeRules& rules,
                                      TimeEntry& entry) {
    return applySteps(draft, rules, entry, page);
}

} // namespace hourwright::billing
