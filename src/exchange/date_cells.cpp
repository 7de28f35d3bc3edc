#include "exchange/date_cells.h"

namespace hourwright::exchange {

namespace {

constexpr std::size_t dayCount = 1024;
constexpr std::size_t minutesPerDay = 24 * 60;
constexpr std::size_t maxUnits = 31;

std::u16string cut(std::u16string text) {
    if (text.size() > maxUnits)
        text.resize(maxUnits);
    return text;
}

} // namespace

DateCells::DateCells(const platform::Locale& locale) : locale_(locale), days_(dayCount), minutes_(minutesPerDay) {}

std::u16string_view DateCells::date(platform::FileTime instant) {
    const std::uint64_t number = instant.ticks / platform::ticksPerDay;
    Day& day = days_[number % dayCount];
    if (day.number != number) {
        const auto calendar = platform::toSystemTime(instant);
        day.text = calendar ? cut(locale_.shortDate(*calendar)) : std::u16string{};
        day.number = number;
    }
    return day.text;
}

std::u16string_view DateCells::time(const platform::SystemTime& time) {
    auto& text = minutes_[(std::size_t{time.hour} * 60 + time.minute) % minutesPerDay];
    if (!text)
        text = cut(locale_.timeWithoutSeconds(time));
    return *text;
}

} // namespace hourwright::exchange
