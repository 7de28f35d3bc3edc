#include "billing/entry_timer.h"

#include "platform/number_text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace hourwright::billing {

namespace {

constexpr std::int32_t secondsPerHour = 3600;
constexpr std::int32_t secondsPerMinute = 60;
constexpr std::int64_t mostSeconds = std::numeric_limits<std::int32_t>::max();

std::int32_t sum(std::int32_t seconds, std::int64_t more) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(seconds + std::min(more, mostSeconds), 0, mostSeconds));
}

void appendTwoDigits(std::u16string& text, std::int32_t number) {
    if (number < 10)
        text += u'0';
    platform::appendInteger(text, number);
}

// Typed numbers are whole and may have a sign; what follows them is ignored.
double wholeNumber(std::u16string_view text) {
    const auto end = text.find_first_of(u".eE");
    return platform::parseDecimal(text.substr(0, end));
}

} // namespace

void EntryTimer::startNow(const platform::Clock& clock) {
    start_ = clock.localTime();
    state_ = TimerState::running;
}

void EntryTimer::startAt(const platform::SystemTime& time, const platform::Clock& clock) {
    const auto from = platform::toFileTime(time);
    const platform::FileTime now = clock.now();
    start_ = time;
    state_ = TimerState::running;
    if (from && *from < now)
        duration_ = sum(duration_, static_cast<std::int64_t>((now.ticks - from->ticks) / platform::ticksPerSecond));
}

void EntryTimer::addElapsed(std::int64_t seconds) {
    const std::int64_t counted = std::max<std::int64_t>(seconds, 1);
    if (isRunning())
        duration_ = sum(duration_, counted);
    else if (isPaused())
        break_ = sum(break_, counted);
}

ClockFields clockFields(std::int32_t seconds) {
    return {.hours = seconds / secondsPerHour,
            .minutes = seconds / secondsPerMinute % 60,
            .seconds = seconds % secondsPerMinute};
}

std::u16string clockText(std::int32_t seconds) {
    const ClockFields fields = clockFields(seconds);
    std::u16string text;
    appendTwoDigits(text, fields.hours);
    text += u':';
    appendTwoDigits(text, fields.minutes);
    text += u':';
    appendTwoDigits(text, fields.seconds);
    return text;
}

std::optional<std::int32_t> secondsOf(std::u16string_view hours, std::u16string_view minutes,
                                      std::u16string_view seconds) {
    const double total =
        wholeNumber(hours) * secondsPerHour + wholeNumber(minutes) * secondsPerMinute + wholeNumber(seconds);
    if (!(total >= 0.0 && total <= static_cast<double>(mostSeconds)))
        return std::nullopt;
    return static_cast<std::int32_t>(total);
}

} // namespace hourwright::billing
