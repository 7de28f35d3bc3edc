#pragma once

#include "platform/file_time.h"

#include <optional>
#include <string>

/// Dates and times as programs exchange them, whatever the locale.
namespace hourwright::exchange {

/// "YYYY-MM-DD", "HH:MM" and "YYYY-MM-DD HH:MM:SS".
[[nodiscard]] std::string dateText(const platform::SystemTime& time);
[[nodiscard]] std::string timeText(const platform::SystemTime& time);
[[nodiscard]] std::string dateTimeText(const platform::SystemTime& time);

/// The calendar fields of an instant; nothing for the zero that stands for none.
[[nodiscard]] std::optional<platform::SystemTime> unlessZero(platform::FileTime time);

/// Appends a number with zeros in front of it up to a width.
void appendPadded(std::string& out, std::uint16_t value, std::size_t width);

} // namespace hourwright::exchange
