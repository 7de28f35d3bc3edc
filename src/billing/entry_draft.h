#pragma once

#include "billing/field_refusal.h"
#include "billing/time_rules.h"
#include "billing/typed_text.h"
#include "platform/file_time.h"
#include "store/time_entry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::billing {

/// How much of a typed duration is read, in UTF-16 units.
inline constexpr std::size_t maxDurationText = 16;

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

/// The editor's pages in tab order; each is checked when it is left and again on saving.
enum class DraftPage : std::uint8_t { general, billing, note, custom };

/// The page that a field stands on.
[[nodiscard]] DraftPage pageOf(DraftField field);

/// A note as it will be stored, and its size as it counts against the limit.
struct NoteDraft {
    std::vector<std::byte> blob;
    std::size_t characters = 0;

    friend bool operator==(const NoteDraft&, const NoteDraft&) = default;
};

/// What somebody has typed for a time entry. What is absent was not touched and keeps its value in the entry; an empty
/// text clears its field.
struct EntryDraft {
    std::optional<platform::SystemTime> date;  ///< year, month and day count
    std::optional<platform::SystemTime> start; ///< hour and minute count
    bool withoutStart = false;                 ///< the entry shall have no start time, whatever `start` shows
    std::optional<platform::SystemTime> end;   ///< hour and minute count; the duration follows from start, break, end
    std::optional<std::u16string> client;
    std::optional<std::u16string> project;
    std::optional<std::u16string> phase;
    std::optional<std::u16string> task;
    std::optional<std::u16string> duration;  ///< hours
    std::optional<std::u16string> breakTime; ///< hours
    std::optional<store::EntryStatus> status;
    std::optional<std::u16string> billTo;
    std::optional<std::u16string> rate;     ///< currency units
    std::optional<std::int32_t> chosenRate; ///< hundredths, from the list of rates; a rate that is typed wins
    std::optional<store::RateType> rateType;
    std::optional<std::u16string> currency;
    std::optional<std::u16string> custom1;
    std::optional<std::u16string> custom2;
    std::optional<std::u16string> custom3;
    std::optional<platform::FileTime> paidDate; ///< zero: none
    std::optional<NoteDraft> note;

    friend bool operator==(const EntryDraft&, const EntryDraft&) = default;
};

using DraftRefusal = FieldRefusal<DraftField>;

/// The draft that an editor opens with: every field but the note as the entry has it, no end. The time shown for an
/// entry without a start time is the one given; a new entry (id none) without hours shows none.
[[nodiscard]] EntryDraft draftOf(const store::TimeEntry& entry, const platform::SystemTime& now);

/// Of an editor's draft what differs from the one that it opened with. So a stored number stays as it is unless it was
/// touched: reading back its text may cut a hundredth off or raise it to a granularity that came later. An empty
/// duration counts as touched, because it is to be refused.
[[nodiscard]] EntryDraft touchedOnly(EntryDraft draft, const EntryDraft& opened);

/// Checks a draft against the entry that it changes, page by page: on the general page date, start, texts, task,
/// duration, break and end, on the billing page the rate first, then note and custom fields. The first failure is
/// returned and the entry stays as it was; without one the entry has taken over the draft. A text that is too long and
/// a number that its field cannot hold are failed writes (error 87). An end needs a start, from the draft or the entry.
[[nodiscard]] std::optional<DraftRefusal> applyDraft(const EntryDraft& draft, const TimeRules& rules,
                                                     store::TimeEntry& entry);

/// The same for one page only, when the user leaves it.
[[nodiscard]] std::optional<DraftRefusal> applyPage(DraftPage page, const EntryDraft& draft, const TimeRules& rules,
                                                    store::TimeEntry& entry);

} // namespace hourwright::billing
