#pragma once

#include "billing/time_rules.h"
#include "platform/error.h"
#include "platform/file_time.h"
#include "resources/strings.h"
#include "store/time_entry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::billing {

/// The longest text that a field of the editor takes, in UTF-16 units.
inline constexpr std::size_t maxTextLength = 128;

/// The first size of a note, in characters, that is refused.
inline constexpr std::size_t noteTooLargeFrom = 65'001;

/// The fields of a draft, for the focus after a refusal.
enum class DraftField : std::uint8_t {
    date,
    start,
    client,
    project,
    phase,
    task,
    duration,
    breakTime,
    end,
    status,
    billTo,
    rate,
    rateType,
    currency,
    custom1,
    custom2,
    custom3,
    paidDate,
    note,
};

/// A note as it will be stored, and its size as it counts against the limit.
struct NoteDraft {
    std::vector<std::byte> blob;
    std::size_t characters = 0;
};

/// What somebody has typed for a time entry. What is absent was not touched and keeps its value in the entry; an empty
/// text clears its field.
struct EntryDraft {
    std::optional<platform::SystemTime> date;  ///< year, month and day count
    std::optional<platform::SystemTime> start; ///< hour and minute count
    bool withoutStart = false;                 ///< the entry shall have no start time
    std::optional<platform::SystemTime> end;   ///< hour and minute count; the duration follows from start, break, end
    std::optional<std::u16string> client;
    std::optional<std::u16string> project;
    std::optional<std::u16string> phase;
    std::optional<std::u16string> task;
    std::optional<std::u16string> duration;  ///< hours
    std::optional<std::u16string> breakTime; ///< hours
    std::optional<store::EntryStatus> status;
    std::optional<std::u16string> billTo;
    std::optional<std::u16string> rate; ///< currency units
    std::optional<store::RateType> rateType;
    std::optional<std::u16string> currency;
    std::optional<std::u16string> custom1;
    std::optional<std::u16string> custom2;
    std::optional<std::u16string> custom3;
    std::optional<platform::FileTime> paidDate; ///< zero: none
    std::optional<NoteDraft> note;
};

/// Why a draft was refused: the field, the message, and for the message "Error: %d" its number.
struct DraftRefusal {
    DraftField field;
    resources::StringId message;
    platform::PlatformError error = platform::PlatformError::none;

    friend bool operator==(const DraftRefusal&, const DraftRefusal&) = default;
};

/// Checks a draft against the entry that it changes, in the editor's order: date, start, texts, task, duration, then
/// break, end, rate and note. The first failure is returned and the entry stays as it was; without one the entry has
/// taken over the draft. A text that is too long and a number that its field cannot hold are failed writes (error 87).
/// An end needs a start, from the draft or the entry.
[[nodiscard]] std::optional<DraftRefusal> applyDraft(const EntryDraft& draft, const TimeRules& rules,
                                                     store::TimeEntry& entry);

} // namespace hourwright::billing
