#pragma once

#include "app/fixed_text.h"
#include "app/font_description.h"
#include "app/style_flags.h"
#include "platform/file_time.h"
#include "platform/registry.h"

#include <array>
#include <cstdint>
#include <string>

namespace hourwright::app {

/// What the defaults of some settings depend on.
struct SettingsDevice {
    std::uint32_t osMajorVersion = 5;
    std::u16string personalFolder; ///< the user's documents folder
};

using Caption = FixedText<32>;
using CurrencyCode = FixedText<16>;
using ReportName = FixedText<64>;
using FolderPath = FixedText<260>;
using ViewCustom = std::array<std::uint32_t, 6>;

/// Version of the stored form that `AppSettings::save` writes.
inline constexpr std::uint32_t settingsVersion = 310;

/// The user's preferences. A value: faces change members and save. Numbers are kept as they were stored, also those
/// that mean nothing; whoever turns one into a choice guards it (`periodKind`, `listStyle`, `xmlEncoding`,
/// `lineBreakSubstitute`; the arithmetic of durations for `minTime` and `timeInterval`).
struct AppSettings {
    std::uint32_t view = 2;         ///< `periodKind` of the time list
    std::uint32_t expView = 3;      ///< `periodKind` of the expense list
    std::uint16_t fontSize = 1;     ///< index; see `createListFont`
    std::uint16_t minTime = 15;     ///< granularity of durations in minutes
    std::uint32_t listStyle = 0;    ///< `listStyle` of the time list
    std::uint32_t expListStyle = 0; ///< `listStyle` of the expense list
    ViewCustom viewCustom{};        ///< choices behind "Customize..."
    Caption custom1Label;           ///< captions of the time entry's three custom fields
    Caption custom2Label;
    Caption custom3Label;
    Caption expenseCustom1Label; ///< captions of the expense's two custom fields
    Caption expenseCustom2Label;
    CurrencyCode defaultCurrency;             ///< of new entries
    std::uint16_t encoding = 0;               ///< `xmlEncoding`
    std::uint16_t breakSubstitute = 0;        ///< `lineBreakSubstitute`
    std::uint16_t timeInterval = 3;           ///< index of the step of the duration list
    std::uint16_t sort = 0;                   ///< "Arrange By" of the time list: 0 none, else the menu's choice
    std::array<ReportName, 5> defaultReports; ///< template of each kind of report
    platform::SystemTime periodStart{};       ///< first day of the custom period; all zero: not chosen yet
    platform::SystemTime periodEnd{};         ///< last day of it
    std::uint16_t hourSymbol = 1;             ///< index
    std::uint16_t expSort = 0;                ///< "Arrange By" of the expense list
    bool askClose = false;                    ///< ask before closing while timers run
    std::uint32_t version = settingsVersion;  ///< as loaded; always saved as `settingsVersion`
    FolderPath dataPath;                      ///< where saving a file starts
    StyleFlags styleFlags{StyleFlag::boldList, StyleFlag::vibrate};
    TreeOptions treeOptions{TreeOptions::allBits};
    std::uint32_t breakOption = 0; ///< a timer's break: 0 typed, 1 shown from the timer

    /// The settings of a first run. A personal folder longer than `dataPath` can hold leaves that empty.
    explicit AppSettings(const SettingsDevice& device);

    /// Reads the settings, creating the key when there is none and translating those of earlier versions. Never fails:
    /// what is missing, too long or of the wrong type or size has its default (flags and tree options: none set), and a
    /// number wider than its member loses its high bits.
    [[nodiscard]] static AppSettings load(platform::Registry& registry, const SettingsDevice& device);

    /// Writes every setting, all or none. False when the key cannot be had or a write is refused; nothing is stored
    /// then.
    bool save(platform::Registry& registry) const;

    /// The font of the lists: 7 points for size 0, one point more for each further size.
    [[nodiscard]] FontDescription createListFont(std::uint8_t charset, bool clearType) const;

    friend bool operator==(const AppSettings&, const AppSettings&) = default;
};

} // namespace hourwright::app
