#pragma once

#include "billing/entry_timer.h"
#include "platform/clock.h"
#include "platform/system_timer.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace hourwright::billing {

/// When a break of a timer is shown: "manually" or "Use timer". Anything else takes no break over into the entry.
using BreakOption = std::uint32_t;
inline constexpr BreakOption breakManually = 0;
inline constexpr BreakOption breakFromTimer = 1;

/// A tick that came much later than it should have: the machine slept, or the program was stopped.
struct TimerGap {
    platform::FileTime lastTick; ///< local time
    std::int64_t seconds = 0;
};

/// The four timers and the system timer that drives them, once a second, as long as the set lives. The time between
/// ticks is taken from the clock without its offset from UTC, so that neither another zone nor daylight saving moves a
/// timer; a clock that was set back counts like no time at all. A machine that was suspended counts once, in one step.
class TimerSet {
public:
    static constexpr std::size_t slotCount = 4;
    /// A tick later than this is reported as a gap.
    static constexpr std::chrono::seconds gapFrom{120};

    /// Borrows both and starts the system timer.
    TimerSet(const platform::Clock& clock, platform::SystemTimer& systemTimer);
    ~TimerSet();
    TimerSet(const TimerSet&) = delete;
    TimerSet& operator=(const TimerSet&) = delete;

    /// What the program's one set is made from at its first use; both must live until `shutDown`.
    static void provide(const platform::Clock& clock, platform::SystemTimer& systemTimer);
    /// The program's one set, made and started at the first call, which must come after `provide`.
    [[nodiscard]] static TimerSet& instance();
    /// Ends the program's one set, if it was made.
    static void shutDown();

    [[nodiscard]] EntryTimer& slot(std::size_t index) { return slots_[index]; }
    [[nodiscard]] const EntryTimer& slot(std::size_t index) const { return slots_[index]; }

    /// The first free slot; nothing when all four are in use.
    [[nodiscard]] std::optional<std::size_t> firstFree() const;
    /// Number of slots that are not free.
    [[nodiscard]] unsigned inUse() const;

    /// Takes the first free slot and starts it, at a time or now. Nothing when none is free.
    std::optional<std::size_t> add(TimerNames names, const std::optional<platform::SystemTime>& start,
                                   std::optional<store::TimeEntry> source = {});
    /// Pauses a running timer, and lets a paused one run.
    void togglePause(std::size_t index);
    void reset(std::size_t index);

    /// Is called on each tick for every slot whose display changes: the running ones, and with `breakFromTimer` the
    /// paused ones.
    std::function<void(std::size_t index)> redraw;
    /// Is called after a tick that came late, while any timer is in use; the time has been counted.
    std::function<void(const TimerGap& gap)> gapFound;
    /// Is called after a timer was added, paused, resumed or freed.
    std::function<void()> changed;
    /// The option in force; asked at each tick.
    std::function<BreakOption()> breakOption;

    /// What the system timer does every second.
    void tick();

private:
    void notifyChanged() const;

    const platform::Clock& clock_;
    platform::SystemTimer& systemTimer_;
    std::array<EntryTimer, slotCount> slots_;
    std::optional<std::int64_t> previousTick_; ///< ticks of 100 ns, UTC
    platform::FileTime previousLocal_;
};

} // namespace hourwright::billing
