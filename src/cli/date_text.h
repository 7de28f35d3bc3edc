#pragma once

#include "exchange/iso_dates.h"
#include "platform/file_time.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::cli {

/// A date as typed: a calendar day, or a number of days from today. The day exists in the calendar, but it need not lie
/// in the years that a date can be stored for.
struct DateText {
    bool relative = false;
    std::int64_t days = 0;       ///< from today, when relative
    platform::SystemTime date{}; ///< otherwise: year, month and day

    friend bool operator==(const DateText&, const DateText&) = default;
};

/// Reads "YYYY-MM-DD" (four or five digits of year), "today", "yesterday", "tomorrow", "+N" or "-N".
[[nodiscard]] std::optional<DateText> parseDate(std::string_view text);

/// The day that is meant, at 00:00, with its day of week; nothing outside the years 1601 to 30827.
[[nodiscard]] std::optional<platform::SystemTime> resolveDate(const DateText& text, const platform::SystemTime& today);

/// Reads "HH:MM" into the hour and minute of an otherwise empty calendar record.
[[nodiscard]] std::optional<platform::SystemTime> parseTime(std::string_view text);

/// Reads "YYYY-MM-DD HH:MM:SS", optionally followed by ".mmm"; nothing outside the years 1601 to 30827.
[[nodiscard]] std::optional<platform::SystemTime> parseDateTime(std::string_view text);

using exchange::dateText;
using exchange::dateTimeText;
using exchange::timeText;

} // namespace hourwright::cli
