#pragma once

#include "app/app_settings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace hourwright::app {

/// A setting's value as scripts see it: numbers, flag sets and the yes/no value as numbers, all else as text. A day of
/// the custom period is "YYYY-MM-DD" (empty: not chosen), `ViewCust` its six numbers with commas between.
using SettingValue = std::variant<std::uint32_t, std::u16string>;

/// Why a value was not taken.
enum class SettingRefusal : std::uint8_t {
    none,        ///< it was taken
    unknownName, ///< there is no such setting
    fixed,       ///< the version is what the program says it is
    wrongKind,   ///< no number, no list of six numbers, no day
    outOfRange,  ///< a number beyond the setting's choices, a day that does not exist
    tooLong,     ///< a text that does not fit
};

/// The stored names of all settings, in the order of saving.
[[nodiscard]] std::vector<std::u16string_view> settingNames();

/// The value of a setting, found by name without regard to ASCII case; nothing when there is no such setting. The
/// version is that of the settings as loaded.
[[nodiscard]] std::optional<SettingValue> settingValue(const AppSettings& settings, std::u16string_view name);

/// A value as text; `setSetting` takes the text of every value that it would accept.
[[nodiscard]] std::u16string settingText(const SettingValue& value);

/// Sets a setting from a text in the form of `settingText`; numbers also hexadecimal with "0x". Refused, the settings
/// stay as they were.
[[nodiscard]] SettingRefusal setSetting(AppSettings& settings, std::u16string_view name, std::u16string_view text);

} // namespace hourwright::app
