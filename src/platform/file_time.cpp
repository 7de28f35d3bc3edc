#include "platform/file_time.h"

#include "platform/calendar.h"

#include <chrono>

namespace hourwright::platform {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::uint16_t firstYear = 1601;
constexpr std::uint16_t lastYear = 30827;
constexpr sys_days epoch{std::chrono::year{firstYear} / 1 / 1};

static_assert(lastFileTime.ticks + 1 ==
              static_cast<std::uint64_t>((sys_days{std::chrono::year{lastYear + 1} / 1 / 1} - epoch).count()) *
                  ticksPerDay);

bool hasFieldsInRange(const SystemTime& time) {
    return time.year >= firstYear && time.year <= lastYear && time.month >= 1 && time.month <= 12 && time.day >= 1 &&
           time.day <= daysInMonth(time.year, time.month) && time.hour < 24 && time.minute < 60 && time.second < 60 &&
           time.milliseconds < 1000;
}

} // namespace

std::optional<FileTime> toFileTime(const SystemTime& time) {
    if (!hasFieldsInRange(time))
        return std::nullopt;
    const sys_days date{std::chrono::year{time.year} / time.month / time.day};
    const auto days = static_cast<std::uint64_t>((date - epoch).count());
    return FileTime{days * ticksPerDay + (time.hour * 60ULL + time.minute) * ticksPerMinute +
                    time.second * ticksPerSecond + time.milliseconds * ticksPerMillisecond};
}

std::optional<SystemTime> toSystemTime(FileTime time) {
    if (time > lastFileTime)
        return std::nullopt;
    const year_month_day date{epoch + std::chrono::days{time.ticks / ticksPerDay}};
    const std::uint64_t ofDay = time.ticks % ticksPerDay;
    SystemTime result;
    result.year = static_cast<std::uint16_t>(static_cast<int>(date.year()));
    result.month = static_cast<std::uint16_t>(static_cast<unsigned>(date.month()));
    result.day = static_cast<std::uint16_t>(static_cast<unsigned>(date.day()));
    result.dayOfWeek = weekday(result.year, result.month, result.day);
    result.hour = static_cast<std::uint16_t>(ofDay / (60 * ticksPerMinute));
    result.minute = static_cast<std::uint16_t>(ofDay / ticksPerMinute % 60);
    result.second = static_cast<std::uint16_t>(ofDay / ticksPerSecond % 60);
    result.milliseconds = static_cast<std::uint16_t>(ofDay / ticksPerMillisecond % 1000);
    return result;
}

} // namespace hourwright::platform
