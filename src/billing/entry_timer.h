#pragma once

#include "platform/clock.h"
#include "store/time_entry.h"

#include <cstdint>
#include <optional>
#include <string>

namespace hourwright::billing {

enum class TimerState : std::int32_t { free = 0, running = 1, paused = 2 };

/// What a timer was added for.
struct TimerNames {
    std::u16string client;
    std::u16string project;
    std::u16string phase;
    std::u16string task;

    friend bool operator==(const TimerNames&, const TimerNames&) = default;
};

/// One timer: running and paused time in whole seconds, at most 2,147,483,647 of each. A value.
class EntryTimer {
public:
    [[nodiscard]] bool isFree() const { return state_ == TimerState::free; }
    [[nodiscard]] bool isRunning() const { return state_ == TimerState::running; }
    [[nodiscard]] bool isPaused() const { return state_ == TimerState::paused; }
    [[nodiscard]] TimerState state() const { return state_; }

    /// Starts with the present time.
    void startNow(const platform::Clock& clock);
    /// Starts at a time; the whole seconds from then to now count at once. A time in the future counts nothing.
    void startAt(const platform::SystemTime& time, const platform::Clock& clock);
    void pause() { state_ = TimerState::paused; }
    void resume() { state_ = TimerState::running; }
    /// Frees the timer; nothing of it is left.
    void reset() { *this = EntryTimer{}; }

    /// A tick: running time or, when paused, break goes on by the seconds elapsed; 0 and a negative number count as 1.
    void addElapsed(std::int64_t seconds);

    [[nodiscard]] const platform::SystemTime& start() const { return start_; }
    void setStart(const platform::SystemTime& start) { start_ = start; }
    [[nodiscard]] std::int32_t duration() const { return duration_; } ///< seconds
    void setDuration(std::int32_t seconds) { duration_ = seconds; }
    [[nodiscard]] std::int32_t breakTime() const { return break_; } ///< seconds
    void setBreak(std::int32_t seconds) { break_ = seconds; }
    [[nodiscard]] const std::u16string& note() const { return note_; }
    void setNote(std::u16string note) { note_ = std::move(note); }
    [[nodiscard]] const TimerNames& names() const { return names_; }
    void setNames(TimerNames names) { names_ = std::move(names); }
    /// The entry that the timer was started from; nothing when there is none.
    [[nodiscard]] const std::optional<store::TimeEntry>& source() const { return source_; }
    void setSource(std::optional<store::TimeEntry> source) { source_ = std::move(source); }

    friend bool operator==(const EntryTimer&, const EntryTimer&) = default;

private:
    TimerState state_ = TimerState::free;
    platform::SystemTime start_{};
    std::int32_t duration_ = 0;
    std::int32_t break_ = 0;
    std::u16string note_;
    TimerNames names_;
    std::optional<store::TimeEntry> source_;
};

/// Seconds as hours, minutes and seconds, "01:30:00"; hours take as many digits as they need.
[[nodiscard]] std::u16string clockText(std::int32_t seconds);

/// The three fields in which seconds are edited.
struct ClockFields {
    std::int32_t hours = 0;
    std::int32_t minutes = 0;
    std::int32_t seconds = 0;

    friend bool operator==(const ClockFields&, const ClockFields&) = default;
};
[[nodiscard]] ClockFields clockFields(std::int32_t seconds);
/// The seconds of three typed whole numbers; a text that begins with no number is 0. Nothing for a sum that is
/// negative or too large.
[[nodiscard]] std::optional<std::int32_t> secondsOf(std::u16string_view hours, std::u16string_view minutes,
                                                    std::u16string_view seconds);

} // namespace hourwright::billing
