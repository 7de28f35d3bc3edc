#pragma once

#include "billing/entry_draft.h"
#include "billing/rate_choice.h"

namespace hourwright::billing {

/// What an editor shows while a draft is being typed.
struct EntryPreview {
    store::TimeEntry entry;                  ///< with date, start, duration and break as far as they can be taken
    std::optional<platform::SystemTime> end; ///< nothing without a start time or a readable duration
    std::optional<double> total;             ///< unrounded; nothing while duration or rate cannot be read
    bool durationReadable = false;
};

/// The preview of a draft, of which only what was touched may be present. An empty duration counts as not readable.
[[nodiscard]] EntryPreview previewOf(const EntryDraft& touched, const RateChoice& rate, const TimeRules& rules,
                                     const store::TimeEntry& entry);

} // namespace hourwright::billing
