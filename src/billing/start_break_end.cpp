#include "billing/start_break_end.h"

#include "billing/duration.h"
#include "billing/numeric_test.h"
#include "platform/number_text.h"

namespace hourwright::billing {

namespace {

using platform::SystemTime;

SystemTime onDay(const SystemTime& day, const SystemTime& time) {
    SystemTime result = day;
    result.hour = time.hour;
    result.minute = time.minute;
    result.second = 0;
    result.milliseconds = 0;
    return result;
}

std::optional<DraftRefusal> takeBreakText(store::TimeEntry& entry, const std::u16string& text) {
    if (!passesNumericTest(text))
        return DraftRefusal{DraftField::breakTime, resources::StringId::numericOnly};
    return setBreakFromText(entry, text) ? std::optional<DraftRefusal>{} : cannotHold(DraftField::breakTime);
}

} // namespace

StartBreakEnd::StartBreakEnd(const store::TimeEntry& entry, const SystemTime& now)
    : entry_(entry), start_(platform::toSystemTime(entry.date).value_or(now)) {
    setStart(store::hasStart(entry) ? start_ : now);
}

std::u16string StartBreakEnd::breakText() const {
    if (typedBreak_)
        return *typedBreak_;
    std::u16string text;
    platform::appendHundredths(text, entry_.breakTime);
    return text;
}

void StartBreakEnd::setStart(const SystemTime& time) {
    start_ = onDay(start_, time);
    followStart();
}

void StartBreakEnd::setEnd(const SystemTime& time) {
    end_ = onDay(start_, time);
}

std::optional<DraftRefusal> StartBreakEnd::setBreak(std::u16string text) {
    breakRefusal_ = takeBreakText(entry_, text);
    typedBreak_ = std::move(text);
    if (!breakRefusal_)
        followStart();
    return breakRefusal_;
}

void StartBreakEnd::setStartMinute(std::uint16_t minute) {
    start_.minute = minute;
    followStart();
}

void StartBreakEnd::setEndMinute(std::uint16_t minute) {
    end_.minute = minute;
}

void StartBreakEnd::followStart() {
    end_ = endTime(start_, entry_);
}

std::optional<DraftRefusal> StartBreakEnd::apply(const TimeRules& rules, store::TimeEntry& entry) const {
    if (breakRefusal_)
        return breakRefusal_;
    const auto duration = durationFromStartEnd(start_, end_, breakHoursOf(entry_), rules);
    if (!duration)
        return cannotHold(DraftField::end);
    if (!store::setDateAndStart(entry, start_))
        return cannotHold(DraftField::start);
    entry.breakTime = entry_.breakTime;
    entry.duration = *duration;
    return {};
}

} // namespace hourwright::billing
