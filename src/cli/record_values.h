#pragma once

#include "cli/output.h"
#include "exchange/iso_dates.h"
#include "exchange/record_json.h"
#include "platform/file_time.h"
#include "platform/locale.h"
#include "store/entry_types.h"

#include <optional>
#include <string>
#include <string_view>

/// Values that time entries and expenses print alike.
namespace hourwright::cli {

using exchange::unlessZero;
using exchange::writeTime;

/// The name of a status, or its number when it has none.
[[nodiscard]] std::string statusText(store::EntryStatus status);

/// The short date of an instant; empty for the zero that stands for none.
[[nodiscard]] std::string shortDateText(const platform::Locale& locale, platform::FileTime time);

/// A line for people: the title, then the value in a column of its own.
void writeField(Output& out, std::string_view title, std::string_view value);

} // namespace hourwright::cli
