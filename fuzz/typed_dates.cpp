// Takes any text for a date, a time, a property, a setting or a command line that somebody types. What is taken must be
// a day of the calendar, and its own text must be taken for the same.

#include "app/setting_values.h"
#include "app/start_options.h"
#include "cli/date_text.h"
#include "cli/property_text.h"
#include "fuzz/input.h"
#include "fuzz/require.h"
#include "platform/calendar.h"
#include "platform/icu/icu_locale.h"
#include "platform/object_store.h"

namespace hourwright::fuzz {

using namespace cli;
using platform::SystemTime;

namespace {

void tryDate(std::string_view text, const SystemTime& today) {
    const auto parsed = parseDate(text);
    if (!parsed)
        return;
    const auto day = resolveDate(*parsed, today);
    if (!day)
        return;
    require(platform::toFileTime(*day).has_value());
    require(platform::toSystemTime(*platform::toFileTime(*day)) == day);
    const auto again = parseDate(dateText(*day));
    require(again && resolveDate(*again, today) == day);
    static const auto german = platform::makeIcuLocale("de_DE");
    require(!german->shortDate(*day).empty());
}

void tryTime(std::string_view text) {
    if (const auto time = parseTime(text))
        require(time->hour < 24 && time->minute < 60 && parseTime(timeText(*time)) == time);
    if (auto instant = parseDateTime(text)) {
        require(platform::toFileTime(*instant).has_value());
        instant->milliseconds = 0;
        require(parseDateTime(dateTimeText(*instant)) == instant);
    }
}

void tryProperty(std::string_view text) {
    auto property = parseProperty(text);
    if (!property || property->deletion)
        return;
    const std::string line = propertyLine(property->value());
    const std::string again = std::to_string(property->id.number()) + ':' + std::string(typeName(property->id.type())) +
                              '=' + valueText(property->value());
    auto parsed = parseProperty(again);
    require(parsed.has_value());
    if (property->id.type() == platform::ValueType::text) {
        // "-" alone would delete the property, and what is no character cannot be shown as it is.
        require(parsed->deletion || valueText(parsed->value()) == valueText(property->value()));
        return;
    }
    if (property->id.type() == platform::ValueType::fileTime && property->number <= platform::lastFileTime.ticks)
        property->number -= property->number % platform::ticksPerMillisecond;
    require(*parsed == *property);
    require(line.starts_with(std::to_string(property->id.number()) + ' '));
}

void trySetting(std::size_t which, std::u16string_view text) {
    static const auto names = app::settingNames();
    const app::AppSettings before{app::SettingsDevice{}};
    const std::u16string_view name = names[which % names.size()];
    app::AppSettings settings = before;
    if (setSetting(settings, name, text) != app::SettingRefusal::none) {
        require(settings == before);
        return;
    }
    app::AppSettings again = before;
    require(setSetting(again, name, app::settingText(*app::settingValue(settings, name))) == app::SettingRefusal::none);
    require(again == settings);
}

void tryStart(std::string_view line) {
    const auto words = app::splitLine(platform::toUtf16(line));
    const app::StartOptions options = app::parseStartOptions(words);
    if (options.error.empty() && options.date)
        require(platform::toFileTime(*options.date).has_value());
    require(app::parseStartOptions(words) == options);
}

void tryMoves(Input& input) {
    SystemTime time{.year = input.number<std::uint16_t>(),
                    .month = input.number<std::uint16_t>(),
                    .dayOfWeek = 0,
                    .day = input.number<std::uint16_t>(),
                    .hour = input.number(),
                    .minute = input.number(),
                    .second = input.number(),
                    .milliseconds = input.number<std::uint16_t>()};
    const auto instant = platform::toFileTime(time);
    const auto by = static_cast<std::int64_t>(input.number<std::uint64_t>());
    SystemTime moved = time;
    const bool done = input.flag() ? platform::addDays(moved, by) : platform::addSeconds(moved, by);
    if (!instant)
        return;
    require(done || moved == time);
    require(platform::toFileTime(moved).has_value());
    SystemTime months = time;
    require(platform::addMonths(months, static_cast<int>(input.below(25)) - 12) || months == time);
    platform::setDay(months, input.number());
    time = *platform::toSystemTime(*instant);
    require(platform::toFileTime(time) == instant);
}

} // namespace

void typedDates(Bytes bytes) {
    constexpr SystemTime today{.year = 2026, .month = 11, .dayOfWeek = 6, .day = 21};
    Input input(bytes);
    const std::uint8_t mode = input.number();
    switch (mode % 8) {
    case 0:
    case 1: return tryDate(input.restChars(), today);
    case 2: return tryTime(input.restChars());
    case 3: return tryProperty(input.restChars());
    case 4: return tryStart(input.restChars());
    case 5: return tryMoves(input);
    default: return trySetting(input.number(), platform::toUtf16(input.restChars()));
    }
}

} // namespace hourwright::fuzz
