#include "billing/precise_minutes.h"

namespace hourwright::billing {
namespace {

struct PreciseFraction {
    double hours;
    int minutes;
};

constexpr PreciseFraction fractions[] = {{0.17, 10}, {0.33, 20}, {0.67, 40}, {0.83, 50}};

} // namespace

std::optional<int> preciseMinutes(double fractionOfHour) {
    for (const auto& fraction : fractions)
        if (fractionOfHour == fraction.hours)
            return fraction.minutes;
    return std::nullopt;
}

} // namespace hourwright::billing
