#include "exchange/iso_dates.h"

namespace hourwright::exchange {

using platform::SystemTime;

void appendPadded(std::string& out, std::uint16_t value, std::size_t width) {
    const std::string digits = std::to_string(value);
    if (digits.size() < width)
        out.append(width - digits.size(), '0');
    out += digits;
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
    appendPadded(out, time.hour, 2);
    out += ':';
    appendPadded(out, time.minute, 2);
    return out;
}

std::string dateTimeText(const SystemTime& time) {
    std::string out = dateText(time);
    out += ' ';
    out += timeText(time);
    out += ':';
    appendPadded(out, time.second, 2);
    return out;
}

std::optional<SystemTime> unlessZero(platform::FileTime time) {
    return time == platform::FileTime{} ? std::nullopt : platform::toSystemTime(time);
}

} // namespace hourwright::exchange
