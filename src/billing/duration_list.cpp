#include "billing/duration_list.h"

#include "platform/number_text.h"

#include <array>

namespace hourwright::billing {
namespace {

// The stored setting is the index, so the late-comer 6 stands at the end.
constexpr std::array<int, 5> stepMinutes = {10, 15, 20, 30, 6};
constexpr std::size_t defaultStep = 3;
constexpr int lastMinutes = 720;

} // namespace

std::vector<std::u16string> durationList(std::uint16_t stepIndex) {
    const int step = stepMinutes[stepIndex < stepMinutes.size() ? stepIndex : defaultStep];
    std::vector<std::u16string> texts;
    for (int minutes = step; minutes <= lastMinutes; minutes += step)
        platform::appendFixedDecimals(texts.emplace_back(), minutes / 60.0, 2);
    return texts;
}

} // namespace hourwright::billing
