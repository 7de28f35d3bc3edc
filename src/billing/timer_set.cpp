#include "billing/timer_set.h"

#include <algorithm>
#include <cassert>
#include <memory>

namespace hourwright::billing {

namespace {

constexpr std::chrono::milliseconds tickPeriod{1000};

struct Provided {
    const platform::Clock* clock = nullptr;
    platform::SystemTimer* systemTimer = nullptr;
    std::unique_ptr<TimerSet> set;
};

Provided& provided() {
    static Provided parts;
    return parts;
}

std::int64_t inUtc(const platform::ClockReading& reading) {
    const auto local =
        static_cast<std::int64_t>(platform::toFileTime(reading.local).value_or(platform::FileTime{}).ticks);
    return local - reading.offsetFromUtc.count() * static_cast<std::int64_t>(platform::ticksPerSecond);
}

} // namespace

TimerSet::TimerSet(const platform::Clock& clock, platform::SystemTimer& systemTimer)
    : clock_(clock), systemTimer_(systemTimer) {
    systemTimer_.start(tickPeriod, [this] { tick(); });
}

TimerSet::~TimerSet() {
    systemTimer_.stop();
}

void TimerSet::provide(const platform::Clock& clock, platform::SystemTimer& systemTimer) {
    provided() = {&clock, &systemTimer, nullptr};
}

TimerSet& TimerSet::instance() {
    Provided& parts = provided();
    assert(parts.clock != nullptr);
    if (parts.set == nullptr)
        parts.set = std::make_unique<TimerSet>(*parts.clock, *parts.systemTimer);
    return *parts.set;
}

void TimerSet::shutDown() {
    provided() = {};
}

std::optional<std::size_t> TimerSet::firstFree() const {
    const auto free = std::ranges::find_if(slots_, &EntryTimer::isFree);
    if (free == slots_.end())
        return std::nullopt;
    return static_cast<std::size_t>(free - slots_.begin());
}

unsigned TimerSet::inUse() const {
    return static_cast<unsigned>(std::ranges::count(slots_, false, &EntryTimer::isFree));
}

std::optional<std::size_t> TimerSet::add(TimerNames names, const std::optional<platform::SystemTime>& start,
                                         std::optional<store::TimeEntry> source) {
    const auto index = firstFree();
    if (!index)
        return std::nullopt;
    EntryTimer& timer = slots_[*index];
    if (start)
        timer.startAt(*start, clock_);
    else
        timer.startNow(clock_);
    timer.setNames(std::move(names));
    timer.setSource(std::move(source));
    notifyChanged();
    return index;
}

void TimerSet::togglePause(std::size_t index) {
    EntryTimer& timer = slots_[index];
    if (timer.isFree())
        return;
    if (timer.isPaused())
        timer.resume();
    else
        timer.pause();
    notifyChanged();
}

void TimerSet::reset(std::size_t index) {
    slots_[index].reset();
    notifyChanged();
}

void TimerSet::notifyChanged() const {
    if (changed)
        changed();
}

void TimerSet::tick() {
    const platform::ClockReading reading = clock_.read();
    const std::int64_t now = inUtc(reading);
    const std::int64_t elapsed =
        (now - previousTick_.value_or(now)) / static_cast<std::int64_t>(platform::ticksPerSecond);
    const platform::FileTime before = previousLocal_;
    previousTick_ = now;
    previousLocal_ = platform::toFileTime(reading.local).value_or(platform::FileTime{});
    const bool breaksShown = breakOption && breakOption() == breakFromTimer;
    for (std::size_t index = 0; index < slotCount; ++index) {
        slots_[index].addElapsed(elapsed);
        if (redraw && (slots_[index].isRunning() || (slots_[index].isPaused() && breaksShown)))
            redraw(index);
    }
    if (gapFound && elapsed >= gapFrom.count() && inUse() > 0)
        gapFound({.lastTick = before, .seconds = elapsed});
}

} // namespace hourwright::billing
