#include "app/idle_watch.h"

#include "billing/timer_completion.h"

#include <algorithm>
#include <utility>

namespace hourwright::app {

std::vector<DoubtfulTime> IdleWatch::forRunning(TimerDoubt doubt, std::int64_t seconds) const {
    std::vector<DoubtfulTime> result;
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot)
        if (timers_.slot(slot).isRunning())
            result.push_back({doubt, slot, std::min<std::int64_t>(seconds, timers_.slot(slot).duration())});
    return result;
}

std::vector<DoubtfulTime> IdleWatch::gap(std::int64_t seconds) const {
    return forRunning(TimerDoubt::gap, seconds);
}

std::vector<DoubtfulTime> IdleWatch::idle(std::optional<std::chrono::seconds> time) {
    if (!time)
        return {};
    const auto away = std::exchange(longestIdle_, std::max(*time, longestIdle_));
    const bool isBack = *time < away;
    if (isBack)
        longestIdle_ = *time;
    return isBack && away >= idleFrom ? forRunning(TimerDoubt::idle, away.count()) : std::vector<DoubtfulTime>{};
}

std::vector<DoubtfulTime> IdleWatch::longRunning(std::int64_t secondsSinceActivity) {
    std::vector<DoubtfulTime> result;
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot) {
        const auto& timer = timers_.slot(slot);
        const bool isLong = timer.isRunning() && timer.duration() > billing::longestUnquestioned;
        if (isLong && !asked_[slot])
            result.push_back({TimerDoubt::day, slot, std::min<std::int64_t>(secondsSinceActivity, timer.duration())});
        asked_[slot] = isLong || (asked_[slot] && timer.isPaused());
    }
    return result;
}

} // namespace hourwright::app
