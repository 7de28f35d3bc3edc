#include "platform/posix/system_clock.h"

#include "support/child_process.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

namespace hourwright::platform {

namespace {

using namespace std::chrono_literals;

// Seconds since 1970 in UTC that a reading stands for.
std::int64_t utcSeconds(const ClockReading& reading) {
    constexpr std::int64_t from1601To1970 = 11'644'473'600;
    const auto local = toFileTime(reading.local);
    return local ? static_cast<std::int64_t>(local->ticks / ticksPerSecond) - from1601To1970 -
                       reading.offsetFromUtc.count()
                 : 0;
}

TEST(SystemClockTest, ShowsTheTimeOfTheZoneThatIsSet) {
    struct Case {
        const char* zone;
        std::chrono::seconds offset;
    };
    // In a child process, so that the zone of the others stays; one process, so that a change of zone is noticed.
    EXPECT_TRUE(test::succeeded(test::inChild([] {
        for (const Case& c : {Case{"UTC0", 0s}, Case{"XXX-5:30", 5h + 30min}, Case{"YYY11", -11h}}) {
            setenv("TZ", c.zone, 1);
            const ClockReading reading = SystemClock().read();
            if (reading.offsetFromUtc != c.offset || std::abs(utcSeconds(reading) - time(nullptr)) > 2)
                return false;
            if (toSystemTime(*toFileTime(reading.local)) != reading.local)
                return false;
        }
        return true;
    })));
}

TEST(FixedClockTest, StandsStillAndKnowsTheDayOfWeek) {
    const FixedClock clock({.year = 2026, .month = 11, .day = 16, .hour = 9, .minute = 5, .second = 1}, 3600s);
    const SystemTime expected{
        .year = 2026, .month = 11, .dayOfWeek = 1, .day = 16, .hour = 9, .minute = 5, .second = 1};
    EXPECT_EQ(clock.read().local, expected);
    EXPECT_EQ(clock.read().offsetFromUtc, 3600s);
    EXPECT_EQ(clock.now(), *toFileTime(expected));
}

} // namespace

} // namespace hourwright::platform
