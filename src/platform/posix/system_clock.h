#pragma once

#include "platform/clock.h"

namespace hourwright::platform {

/// The machine's clock in the zone that is set when it is read.
class SystemClock : public Clock {
public:
    [[nodiscard]] ClockReading read() const override;
};

/// A clock that always shows the same local time.
class FixedClock : public Clock {
public:
    /// The day of week is worked out from the date. `local` must be a possible time from the year 1601 on.
    explicit FixedClock(const SystemTime& local, std::chrono::seconds offsetFromUtc = {})
        : reading_{.local = toSystemTime(toFileTime(local).value_or(FileTime{})).value_or(SystemTime{}),
                   .offsetFromUtc = offsetFromUtc} {}

    [[nodiscard]] ClockReading read() const override { return reading_; }

private:
    ClockReading reading_;
};

} // namespace hourwright::platform
