#pragma once

#include "platform/file_time.h"

#include <QDate>
#include <QTime>

/// Dates and times to and from the toolkit.
namespace hourwright::platform {

[[nodiscard]] inline QDate toQDate(const SystemTime& time) {
    return {time.year, time.month, time.day};
}

[[nodiscard]] inline QTime toQTime(const SystemTime& time) {
    return {time.hour, time.minute};
}

/// The day at 00:00, with its day of week; all zero for an invalid date.
[[nodiscard]] inline SystemTime toSystemTime(const QDate& date) {
    if (!date.isValid() || date.year() < 1601 || date.year() > 30827)
        return {};
    return {.year = static_cast<std::uint16_t>(date.year()),
            .month = static_cast<std::uint16_t>(date.month()),
            .dayOfWeek = static_cast<std::uint16_t>(date.dayOfWeek() % 7),
            .day = static_cast<std::uint16_t>(date.day())};
}

/// The same day at a time of day, to the minute.
[[nodiscard]] inline SystemTime toSystemTime(const QDate& date, const QTime& time) {
    SystemTime result = toSystemTime(date);
    result.hour = static_cast<std::uint16_t>(time.hour());
    result.minute = static_cast<std::uint16_t>(time.minute());
    return result;
}

} // namespace hourwright::platform
