#include "cli/date_text.h"

#include "platform/calendar.h"

#include <algorithm>
#include <charconv>

namespace hourwright::cli {

namespace {

using platform::SystemTime;

constexpr std::uint16_t firstYear = 1601;
constexpr std::uint16_t lastYear = 30827;

bool allDigits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// A number of exactly so many digits at the front of `text`, which is taken off.
std::optional<std::uint16_t> takeDigits(std::string_view& text, std::size_t count) {
    if (text.size() < count || !allDigits(text.substr(0, count)))
        return std::nullopt;
    std::uint16_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + count, value);
    text.remove_prefix(count);
    return error == std::errc{} ? std::optional(value) : std::nullopt;
}

bool takeCharacter(std::string_view& text, char c) {
    if (text.empty() || text.front() != c)
        return false;
    text.remove_prefix(1);
    return true;
}

// "YYYY-MM-DD" at the front of `text`, which is taken off.
std::optional<SystemTime> takeDate(std::string_view& text) {
    const std::size_t yearDigits = text.find('-');
    if (yearDigits != 4 && yearDigits != 5)
        return std::nullopt;
    const auto year = takeDigits(text, yearDigits);
    const bool firstDash = takeCharacter(text, '-');
    const auto month = firstDash ? takeDigits(text, 2) : std::nullopt;
    const bool secondDash = takeCharacter(text, '-');
    const auto day = secondDash ? takeDigits(text, 2) : std::nullopt;
    if (!year || !month || !day || *month < 1 || *month > 12)
        return std::nullopt;
    if (*day < 1 || *day > platform::daysInMonth(*year, *month))
        return std::nullopt;
    return SystemTime{.year = *year, .month = *month, .day = *day};
}

// "HH:MM" at the front of `text`, which is taken off.
std::optional<SystemTime> takeTime(std::string_view& text) {
    const auto hour = takeDigits(text, 2);
    const bool colon = takeCharacter(text, ':');
    const auto minute = colon ? takeDigits(text, 2) : std::nullopt;
    if (!hour || !minute || *hour > 23 || *minute > 59)
        return std::nullopt;
    return SystemTime{.hour = *hour, .minute = *minute};
}

// ":SS" and ".mmm" behind a time of day, to the end of the text.
bool takeSeconds(std::string_view text, SystemTime& time) {
    if (!takeCharacter(text, ':'))
        return false;
    const auto second = takeDigits(text, 2);
    if (!second || *second > 59)
        return false;
    time.second = *second;
    if (takeCharacter(text, '.')) {
        const auto milliseconds = takeDigits(text, 3);
        if (!milliseconds)
            return false;
        time.milliseconds = *milliseconds;
    }
    return text.empty();
}

std::optional<DateText> parseOffset(std::string_view text) {
    const bool negative = text.front() == '-';
    text.remove_prefix(1);
    if (!allDigits(text))
        return std::nullopt;
    std::int64_t days = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), days);
    constexpr std::int64_t beyondAllDates = 100'000'000;
    if (error != std::errc{} || days > beyondAllDates)
        days = beyondAllDates;
    return DateText{.relative = true, .days = negative ? -days : days};
}

void appendPadded(std::string& out, std::uint16_t value, std::size_t width) {
    const std::string digits = std::to_string(value);
    if (digits.size() < width)
        out.append(width - digits.size(), '0');
    out += digits;
}

void appendTime(std::string& out, const SystemTime& time) {
    appendPadded(out, time.hour, 2);
    out += ':';
    appendPadded(out, time.minute, 2);
}

} // namespace

std::optional<DateText> parseDate(std::string_view text) {
    if (text == "today")
        return DateText{.relative = true, .days = 0};
    if (text == "yesterday")
        return DateText{.relative = true, .days = -1};
    if (text == "tomorrow")
        return DateText{.relative = true, .days = 1};
    if (text.starts_with('+') || text.starts_with('-'))
        return parseOffset(text);
    const auto date = takeDate(text);
    if (!date || !text.empty())
        return std::nullopt;
    return DateText{.date = *date};
}

std::optional<SystemTime> resolveDate(const DateText& text, const SystemTime& today) {
    SystemTime day = text.relative ? today : text.date;
    platform::clearTime(day);
    if (day.year < firstYear || day.year > lastYear)
        return std::nullopt;
    if (text.relative && !platform::addDays(day, text.days))
        return std::nullopt;
    day.dayOfWeek = platform::weekday(day.year, day.month, day.day);
    return day;
}

std::optional<SystemTime> parseTime(std::string_view text) {
    const auto time = takeTime(text);
    return text.empty() ? time : std::nullopt;
}

std::optional<SystemTime> parseDateTime(std::string_view text) {
    const auto date = takeDate(text);
    if (!date || date->year < firstYear || date->year > lastYear || !takeCharacter(text, ' '))
        return std::nullopt;
    auto time = takeTime(text);
    if (!time || !takeSeconds(text, *time))
        return std::nullopt;
    time->year = date->year;
    time->month = date->month;
    time->day = date->day;
    time->dayOfWeek = platform::weekday(date->year, date->month, date->day);
    return time;
}

std::string dateText(const SystemTime& time) {
    std::string out;
    appendPadded(out, time.year, 4);
    out += '-';
    appendPadded(out, time.month, 2);
    out += '-';
    appendPadded(out, time.day, 2);
    return out;
}

std::string timeText(const SystemTime& time) {
    std::string out;
    appendTime(out, time);
    return out;
}

std::string dateTimeText(const SystemTime& time) {
    std::string out = dateText(time);
    out += ' ';
    appendTime(out, time);
    out += ':';
    appendPadded(out, time.second, 2);
    return out;
}

} // namespace hourwright::cli
