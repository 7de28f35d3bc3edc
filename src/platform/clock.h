#pragma once

#include "platform/file_time.h"

#include <chrono>

namespace hourwright::platform {

/// One reading of the clock: local time and how far it is ahead of UTC at that moment.
struct ClockReading {
    SystemTime local;
    std::chrono::seconds offsetFromUtc{0};
};

/// Where the program gets the time from. Core code is given one and never asks the machine.
class Clock {
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual ClockReading read() const = 0;

    /// Local time as calendar fields, with the day of week.
    [[nodiscard]] SystemTime localTime() const { return read().local; }

    /// Local time as an instant, without any zone shift.
    [[nodiscard]] FileTime now() const { return toFileTime(read().local).value_or(FileTime{}); }
};

} // namespace hourwright::platform
