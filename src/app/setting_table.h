#pragma once

#include "app/app_settings.h"
#include "app/export_options.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <variant>

namespace hourwright::app {

/// The member `version`, which has rules of its own.
struct VersionMember {};
/// One of `defaultReports`.
struct ReportMember {
    std::size_t index;
};

/// The member of a setting. Its type decides how the value is stored: numbers and flags as DWORD, texts as strings
/// padded to their capacity (report names at their own length, none when empty), the rest as binary data.
using SettingMember = std::variant<std::uint16_t AppSettings::*, std::uint32_t AppSettings::*, bool AppSettings::*,
                                   Caption AppSettings::*, CurrencyCode AppSettings::*, FolderPath AppSettings::*,
                                   ViewCustom AppSettings::*, platform::SystemTime AppSettings::*,
                                   StyleFlags AppSettings::*, TreeOptions AppSettings::*, VersionMember, ReportMember>;

/// One stored setting. The default value is the member's initial one.
struct Setting {
    std::u16string_view name;
    SettingMember member;
    /// Which numbers may be set by hand; null: all that the member can hold.
    bool (*allowed)(std::uint32_t value) = nullptr;
};

template<std::uint32_t first, std::uint32_t last>
constexpr bool within(std::uint32_t value) {
    return value >= first && value <= last;
}

inline constexpr std::array<std::uint16_t, 8> granularities{6, 10, 15, 20, 30, 40, 45, 50};

constexpr bool isGranularity(std::uint32_t value) {
    for (const std::uint32_t minutes : granularities)
        if (minutes == value)
            return true;
    return false;
}

/// Every stored setting in the order of saving. Loading takes the same order: the version comes first, because the
/// flags depend on it.
inline constexpr std::array<Setting, 32> settingTable{{
    {u"hwVersion", VersionMember{}, within<settingsVersion, settingsVersion>},
    {u"View", &AppSettings::view, within<1, 4>},
    {u"ListStyle", &AppSettings::listStyle, within<0, 2>},
    {u"ExpView", &AppSettings::expView, within<1, 4>},
    {u"ExpListStyle", &AppSettings::expListStyle, within<0, 2>},
    {u"FSize", &AppSettings::fontSize, within<0, 65>}, // 7 to 72 points
    {u"DefNewStyles", &AppSettings::styleFlags, within<0, StyleFlags::allBits>},
    {u"AskClose", &AppSettings::askClose, within<0, 1>},
    {u"Custom1", &AppSettings::custom1Label},
    {u"Custom2", &AppSettings::custom2Label},
    {u"Custom3", &AppSettings::custom3Label},
    {u"ExpenseCustom1", &AppSettings::expenseCustom1Label},
    {u"ExpenseCustom2", &AppSettings::expenseCustom2Label},
    {u"DefCurr", &AppSettings::defaultCurrency},
    {u"Encoding", &AppSettings::encoding, within<0, xmlEncodingCount - 1>},
    {u"BreakSub", &AppSettings::breakSubstitute, within<0, lineBreakSubstituteCount - 1>},
    {u"MinTime", &AppSettings::minTime, isGranularity},
    {u"TimeInterval", &AppSettings::timeInterval, within<0, 4>},
    {u"ViewCust", &AppSettings::viewCustom},
    {u"Sort", &AppSettings::sort, within<0, 8>},
    {u"ExpSort", &AppSettings::expSort},
    {u"HourSymbol", &AppSettings::hourSymbol},
    {u"DefReport0", ReportMember{0}},
    {u"DefReport1", ReportMember{1}},
    {u"DefReport2", ReportMember{2}},
    {u"DefReport3", ReportMember{3}},
    {u"DefReport4", ReportMember{4}},
    {u"PeriodStart", &AppSettings::periodStart},
    {u"PeriodEnd", &AppSettings::periodEnd},
    {u"DbPath", &AppSettings::dataPath},
    {u"TreeOptions", &AppSettings::treeOptions, within<0, TreeOptions::allBits>},
    {u"BreakOption", &AppSettings::breakOption, within<0, 1>},
}};
static_assert(std::holds_alternative<VersionMember>(settingTable.front().member));

/// The member itself, of settings or of constant settings.
template<typename Settings, typename Value>
auto& memberOf(Settings& settings, Value AppSettings::*member) {
    return settings.*member;
}
template<typename Settings>
auto& memberOf(Settings& settings, VersionMember /*member*/) {
    return settings.version;
}
template<typename Settings>
auto& memberOf(Settings& settings, ReportMember member) {
    return settings.defaultReports[member.index];
}

} // namespace hourwright::app
