#pragma once

#include "billing/timer_set.h"

#include <chrono>
#include <functional>
#include <optional>

namespace hourwright::app {

/// Why a running timer is asked about.
enum class TimerDoubt : std::uint8_t {
    gap,  ///< the machine slept, or the program stood still
    idle, ///< nobody touched the machine
    day,  ///< it has run longer than a day
};

/// What is asked: the time in doubt, before now, and the timer it concerns.
struct DoubtfulTime {
    TimerDoubt doubt = TimerDoubt::gap;
    std::size_t slot = 0;
    std::int64_t seconds = 0;

    friend bool operator==(const DoubtfulTime&, const DoubtfulTime&) = default;
};

enum class DoubtAnswer : std::uint8_t { keep, trim, split };

/// Notices time that running timers may have counted wrongly. It is told what happens and says what to ask, each doubt
/// once.
class IdleWatch {
public:
    /// How long nobody must have touched the machine.
    static constexpr std::chrono::minutes idleFrom{10};

    explicit IdleWatch(const billing::TimerSet& timers) : timers_(timers) {}

    /// A tick came late by so many seconds: asks for every running timer.
    [[nodiscard]] std::vector<DoubtfulTime> gap(std::int64_t seconds) const;
    /// The user has been away for so long (nothing: not known): asks when he is back.
    [[nodiscard]] std::vector<DoubtfulTime> idle(std::optional<std::chrono::seconds> time);
    /// Looks for timers that have run longer than a day, with the time since the user was last seen.
    [[nodiscard]] std::vector<DoubtfulTime> longRunning(std::int64_t secondsSinceActivity);

private:
    [[nodiscard]] std::vector<DoubtfulTime> forRunning(TimerDoubt doubt, std::int64_t seconds) const;

    const billing::TimerSet& timers_;
    std::chrono::seconds longestIdle_{0};
    std::array<bool, billing::TimerSet::slotCount> asked_{};
};

} // namespace hourwright::app
