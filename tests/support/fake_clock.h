#pragma once

#include "platform/calendar.h"
#include "platform/clock.h"

#include <cstdint>

namespace hourwright::test {

/// A clock that stands still until it is moved. Zone offset and local time are set independently of each other.
class FakeClock : public platform::Clock {
public:
    explicit FakeClock(platform::SystemTime local = {.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16, .hour = 9})
        : reading_{.local = local} {}

    [[nodiscard]] platform::ClockReading read() const override { return reading_; }

    void set(const platform::SystemTime& local) { reading_.local = local; }
    void setOffset(std::chrono::seconds offsetFromUtc) { reading_.offsetFromUtc = offsetFromUtc; }
    void advance(std::int64_t seconds) { platform::addSeconds(reading_.local, seconds); }

    /// The zone changes: local time jumps with the offset, UTC goes on.
    void changeZone(std::chrono::seconds offsetFromUtc) {
        advance((offsetFromUtc - reading_.offsetFromUtc).count());
        reading_.offsetFromUtc = offsetFromUtc;
    }

private:
    platform::ClockReading reading_;
};

} // namespace hourwright::test
