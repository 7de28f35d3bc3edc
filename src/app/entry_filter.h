#pragma once

#include "app/stored_filter_value.h"
#include "app/text_conditions.h"
#include "app/view_filter.h"
#include "platform/locale.h"
#include "platform/registry.h"
#include "store/time_entry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hourwright::app {

/// Decides which time entries the views show. A value; an empty text means any. The custom fields and the range of
/// dates hold only while the program runs.
struct EntryFilter : ViewFilter {
    static constexpr std::uint32_t anyRateType = 0xFFFFFFFF;

    std::u16string client;
    std::u16string project;
    std::u16string phase;
    std::u16string task;
    std::u16string billTo;
    std::u16string currency;
    std::u16string custom1;
    std::u16string custom2;
    std::u16string custom3;
    std::uint32_t rateType = anyRateType; ///< number of the `store::RateType` to show

    /// The stored filter, without custom fields and range. Never fails: what cannot be read passes everything. It
    /// creates the settings' key when there is none, so the settings, which look for it, are to be loaded before.
    [[nodiscard]] static EntryFilter load(platform::Registry& registry);

    /// Stores the filter without custom fields and range, all of it or nothing; false when it was not stored.
    bool save(platform::Registry& registry) const;

    /// What saving writes, in its order; empty texts, which it only removes, are included.
    [[nodiscard]] std::vector<StoredFilterValue> storedValues() const;

    /// True when the entry is to be shown; see `EntryMatcher` for many entries.
    [[nodiscard]] bool matches(const store::TimeEntry& entry, const platform::Locale& userLocale) const;

    /// "Show All": passes every entry, whatever its texts, date, status and rate type.
    void showAll() { *this = EntryFilter{}; }

    friend bool operator==(const EntryFilter&, const EntryFilter&) = default;
};

/// A filter made ready for many entries. It copies the filter and borrows the locale, which compares texts.
class EntryMatcher {
public:
    EntryMatcher(const EntryFilter& filter, const platform::Locale& userLocale);

    [[nodiscard]] bool matches(const store::TimeEntry& entry) const;

private:
    ViewFilter common_;
    FilterRange range_;
    std::uint32_t rateType_;
    TextConditions<store::TimeEntry> texts_;
};

} // namespace hourwright::app
