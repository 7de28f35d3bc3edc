#pragma once

#include "billing/time_rules.h"
#include "platform/locale.h"
#include "resources/strings.h"
#include "store/entry_types.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace hourwright::app {

/// What cells depend on besides their record.
struct CellContext {
    const platform::Locale& locale;
    const billing::TimeRules& rules;
};

/// A column of a list of records as it is before any stored layout is applied.
template<typename Record>
struct ListColumn {
    std::string_view name; ///< for scripts
    resources::StringId title;
    std::uint16_t width; ///< pixels at 96 pixels per inch
    bool alignRight;
    std::u16string (*cell)(const Record& record, const CellContext& context);
};

/// What stands before a row: the number of the icon for its billing status, 1 to 4, and whether the sign for a note
/// lies over it.
struct RowImage {
    std::uint8_t icon = 1;
    bool noteOverlay = false;

    friend bool operator==(const RowImage&, const RowImage&) = default;
};

/// The icon of a status; a number that is none has that of Non Billable.
[[nodiscard]] std::uint8_t statusIcon(store::EntryStatus status);

/// The short date of an instant; empty beyond the calendar.
[[nodiscard]] std::u16string dateCell(platform::FileTime instant, const CellContext& context);

/// Two decimals in the form of the locale's numbers.
[[nodiscard]] std::u16string moneyCell(double amount, const CellContext& context);

/// The cell of a text.
template<typename Record, std::u16string Record::*text>
std::u16string textCell(const Record& record, const CellContext& /*context*/) {
    return record.*text;
}

} // namespace hourwright::app
