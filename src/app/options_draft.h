#pragma once

#include "app/app_settings.h"
#include "app/display_settings.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hourwright::app {

/// What the options are edited in: copies of the settings and display choices, put back when the options are accepted.
struct OptionsDraft {
    AppSettings settings;
    DisplaySettings display;

    friend bool operator==(const OptionsDraft&, const OptionsDraft&) = default;
};

/// The options that are chosen from a list.
enum class OptionList : std::uint8_t {
    weekStart,
    fontSize,
    itemTap,
    encoding,
    lineBreak,
    hourSymbol,
    granularity,
    entryTime,
    durationInterval,
    breakTime,
};

/// The texts of a list, in the order of their indexes.
[[nodiscard]] std::vector<std::u16string> optionTexts(OptionList list);

/// The index of what is chosen; a stored number that means nothing is shown as what it stands for, for example the
/// interval of 30 minutes. -1 when no choice of the list is meant.
[[nodiscard]] int optionIndex(const OptionsDraft& draft, OptionList list);
/// Chooses an index of the list.
void setOption(OptionsDraft& draft, OptionList list, int index);

/// The options that are on or off.
enum class OptionFlag : std::uint8_t {
    weekNumber,
    bold,
    softKeys,
    billable,
    granularity,
    clientName,
    statusIcon,
    preciseMinutes,
    askClose,
    vibrate,
};

[[nodiscard]] bool optionFlag(const OptionsDraft& draft, OptionFlag flag);
void setOption(OptionsDraft& draft, OptionFlag flag, bool on);

/// True when the menus change over to soft keys or back: they do so at the next start only.
[[nodiscard]] bool needsRestart(const AppSettings& before, const AppSettings& after);

} // namespace hourwright::app
