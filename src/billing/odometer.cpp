#include "billing/odometer.h"

#include <limits>

namespace hourwright::billing {

namespace {

constexpr std::uint64_t largest = std::numeric_limits<std::uint32_t>::max();

constexpr bool fits(std::uint32_t start, std::uint32_t distance) {
    return std::uint64_t{start} + distance <= largest;
}

std::u16string_view withoutBlanks(std::u16string_view text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

} // namespace

bool Odometer::setStart(std::uint32_t start) {
    if (!fits(start, distance_))
        return false;
    start_ = start;
    return true;
}

bool Odometer::setDistance(std::uint32_t distance) {
    if (!fits(start_, distance))
        return false;
    distance_ = distance;
    return true;
}

bool Odometer::setEnd(std::uint32_t end) {
    if (end < start_)
        return false;
    distance_ = end - start_;
    return true;
}

std::optional<std::uint32_t> odometerFromText(std::u16string_view text) {
    std::uint64_t number = 0;
    for (const char16_t digit : withoutBlanks(text)) {
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        number = number * 10 + static_cast<std::uint64_t>(digit - u'0');
        if (number > largest)
            return std::nullopt;
    }
    return static_cast<std::uint32_t>(number);
}

} // namespace hourwright::billing
