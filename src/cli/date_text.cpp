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

// Takes a number of exactly so many digits off the front of `text`.
bool takeDigits(std::string_view& text, std::size_t count, std::uint16_t& value) {
    if (text.size() < count || !allDigits(text.substr(0, count)))
        return false;
    const auto [end, error] = std::from_chars(text.data(), text.data() + count, value);
    text.remove_prefix(count);
    return error == std::errc{};
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
    SystemTime date;
    if (!takeDigits(text, yearDigits, date.year) || !takeCharacter(text, '-') || !takeDigits(text, 2, date.month) ||
        !takeCharacter(text, '-') || !takeDigits(text, 2, date.day))
        return std::nullopt;
    if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > platform::daysInMonth(date.year, date.month))
        return std::nullopt;
    return date;
}

// "HH:MM" at the front of `text`, which is taken off.
std::optional<SystemTime> takeTime(std::string_view& text) {
    SystemTime time;
    if (!takeDigits(text, 2, time.hour) || !takeCharacter(text, ':') || !takeDigits(text, 2, time.minute))
        return std::nullopt;
    return time.hour <= 23 && time.minute <= 59 ? std::optional(time) : std::nullopt;
}

// ":SS" and ".mmm" behind a time of day, to the end of the text.
bool takeSeconds(std::string_view text, SystemTime& time) {
    if (!takeCharacter(text, ':') || !takeDigits(text, 2, time.second) || time.second > 59)
        return false;
    if (takeCharacter(text, '.') && !takeDigits(text, 3, time.milliseconds))
        return false;
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

} // namespace hourwright::cli
