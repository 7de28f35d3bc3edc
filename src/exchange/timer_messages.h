#pragma once

#include "billing/timer_set.h"
#include "platform/error.h"
#include "resources/strings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// What another program asks of the running copy's timers, and its answer, as bytes.
namespace hourwright::exchange {

enum class TimerAction : std::uint8_t { list, add, pause, resume, edit, complete, cancel };

/// A request; which members count depends on the action.
struct TimerRequest {
    TimerAction action = TimerAction::list;
    std::uint8_t slot = 0;                   ///< 0 to 3: all but list and add
    billing::TimerNames names;               ///< add
    std::optional<platform::FileTime> start; ///< add: local time; nothing is now
    std::optional<std::int32_t> duration;    ///< edit, seconds
    std::optional<std::int32_t> breakTime;   ///< edit, seconds
    std::optional<std::u16string> note;      ///< add, edit
    bool save = false;                       ///< complete: save at once, without the editor

    friend bool operator==(const TimerRequest&, const TimerRequest&) = default;
};

/// A timer as it is listed.
struct ListedTimer {
    std::uint8_t slot = 0;
    bool paused = false;
    platform::FileTime start;   ///< local time
    std::int32_t duration = 0;  ///< seconds
    std::int32_t breakTime = 0; ///< seconds
    billing::TimerNames names;
    std::u16string note;

    friend bool operator==(const ListedTimer&, const ListedTimer&) = default;
};

enum class TimerOutcome : std::uint8_t {
    done,
    noFreeSlot, ///< all four timers are in use
    slotFree,   ///< there is no timer in that slot
    refused,    ///< the entry was not saved: `message` says why
};

struct TimerReply {
    TimerOutcome outcome = TimerOutcome::done;
    std::uint16_t message = 0;       ///< number of the string that says why
    std::uint32_t error = 0;         ///< platform error for "Error: %d"
    std::uint32_t record = 0;        ///< id of the entry that was saved
    std::vector<ListedTimer> timers; ///< those in use after the request; of a list all, else the one concerned

    friend bool operator==(const TimerReply&, const TimerReply&) = default;
};

[[nodiscard]] std::vector<std::byte> packed(const TimerRequest& request);
[[nodiscard]] std::vector<std::byte> packed(const TimerReply& reply);
/// Nothing for bytes that `packed` does not make.
[[nodiscard]] std::optional<TimerRequest> unpackTimerRequest(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<TimerReply> unpackTimerReply(std::span<const std::byte> bytes);

} // namespace hourwright::exchange
