#pragma once

#include "billing/field_refusal.h"
#include "billing/time_rules.h"
#include "platform/calendar.h"
#include "store/stores.h"
#include "store/time_entry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Copying an entry to other days.
namespace hourwright::billing {

/// The longest way, in days, from an entry to the end date of its copies. It keeps a mistyped year from filling the
/// store.
inline constexpr int maxCopyDays = 3660;

enum class CopyTarget : std::uint8_t { date, restOfWeek, untilDate };
enum class CopyField : std::uint8_t { date, endDate, duration };
using CopyRefusal = FieldRefusal<CopyField>;

/// What stands in the dialog.
struct CopyOrder {
    CopyTarget target = CopyTarget::date;
    platform::SystemTime date;              ///< the one day, or the last one; year, month and day count
    bool includeWeekend = false;            ///< does not concern a single date
    std::optional<std::u16string> duration; ///< hours; absent: the copies keep the entry's
};

/// What the order is carried out by.
struct CopyRules {
    TimeRules time;
    platform::WeekStart weekStart = platform::WeekStart::sunday;
    platform::FileTime now;
};

/// The copies of one entry: a new record that differs from day to day in nothing but its date.
struct EntryCopies {
    store::TimeEntry entry;
    std::vector<platform::FileTime> dates;
};

/// Makes the copies: new records of their days, with the entry's time of day, start mark included, and changed now. The
/// rest of the week ends before the day that begins the next one, or before Saturday without the weekend; only days up
/// to an end date skip Saturdays and Sundays one by one. There may be none, and there are none beyond the calendar.
/// Returns why not: a duration that is no number, or error 87 for a duration that cannot be held, a date that cannot be
/// stored and an end date more than `maxCopyDays` away.
[[nodiscard]] std::optional<CopyRefusal> makeCopies(const store::TimeEntry& entry, const CopyOrder& order,
                                                    const CopyRules& rules, EntryCopies& copies);

/// Adds the copies to the store and returns their ids; nothing when one was not written.
[[nodiscard]] std::optional<std::vector<store::RecordId>> saveCopies(platform::Transaction& transaction,
                                                                     store::Stores& stores, const EntryCopies& copies);

} // namespace hourwright::billing
