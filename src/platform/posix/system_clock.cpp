#include "platform/posix/system_clock.h"

#include <algorithm>
#include <ctime>

namespace hourwright::platform {

ClockReading SystemClock::read() const {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    tzset(); // localtime_r alone would not notice that the zone has been changed since
    localtime_r(&now.tv_sec, &local);
    const auto field = [](long value) { return static_cast<std::uint16_t>(value); };
    return {.local = {.year = field(local.tm_year + 1900),
                      .month = field(local.tm_mon + 1),
                      .dayOfWeek = field(local.tm_wday),
                      .day = field(local.tm_mday),
                      .hour = field(local.tm_hour),
                      .minute = field(local.tm_min),
                      .second = field(std::min(local.tm_sec, 59)), // a leap second has no number of its own
                      .milliseconds = field(now.tv_nsec / 1'000'000)},
            .offsetFromUtc = std::chrono::seconds(local.tm_gmtoff)};
}

} // namespace hourwright::platform
