#include "app/setting_values.h"

#include "app/setting_table.h"
#include "platform/calendar.h"
#include "platform/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace hourwright::app {

namespace {

using platform::SystemTime;

char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

const Setting* findSetting(std::u16string_view name) {
    const auto found = std::ranges::find_if(settingTable, [name](const Setting& setting) {
        return std::ranges::equal(setting.name, name, {}, lower, lower);
    });
    return found == settingTable.end() ? nullptr : &*found;
}

// Reading

void appendPadded(std::u16string& out, std::uint32_t number, std::size_t digits) {
    std::u16string text;
    platform::appendInteger(text, number);
    out.append(digits > text.size() ? digits - text.size() : 0, u'0');
    out += text;
}

SettingValue valueOf(std::uint32_t number) {
    return number;
}
template<typename Flag, unsigned size>
SettingValue valueOf(const FlagSet<Flag, size>& flags) {
    return flags.bits();
}
template<std::size_t units>
SettingValue valueOf(const FixedText<units>& text) {
    return text.text();
}
SettingValue valueOf(const ViewCustom& numbers) {
    std::u16string text;
    for (const std::uint32_t number : numbers) {
        text += text.empty() ? u"" : u",";
        platform::appendInteger(text, number);
    }
    return text;
}
SettingValue valueOf(const SystemTime& day) {
    std::u16string text;
    if (day == SystemTime{})
        return text;
    appendPadded(text, day.year, 4);
    text += u'-';
    appendPadded(text, day.month, 2);
    text += u'-';
    appendPadded(text, day.day, 2);
    return text;
}

// Setting

/// A parsed number, or why there is none.
struct ParsedNumber {
    SettingRefusal refusal = SettingRefusal::none;
    std::uint32_t number = 0;
};

ParsedNumber parseNumber(std::u16string_view text) {
    const bool hexadecimal = text.starts_with(u"0x") || text.starts_with(u"0X");
    if (hexadecimal)
        text.remove_prefix(2);
    std::string digits;
    for (const char16_t unit : text)
        digits += unit < 0x80 ? static_cast<char>(unit) : '?';
    const bool negative = !hexadecimal && digits.starts_with('-');
    const char* const first = digits.data() + (negative ? 1 : 0);
    const char* const last = digits.data() + digits.size();
    ParsedNumber parsed;
    const auto [end, error] = std::from_chars(first, last, parsed.number, hexadecimal ? 16 : 10);
    if (end != last || error == std::errc::invalid_argument)
        return {SettingRefusal::wrongKind};
    if (negative || error == std::errc::result_out_of_range)
        return {SettingRefusal::outOfRange};
    return parsed;
}

/// The numbers between separators; nothing unless there are exactly `count`.
template<std::size_t count>
std::optional<std::array<ParsedNumber, count>> parseNumbers(std::u16string_view text, char16_t separator) {
    std::array<ParsedNumber, count> numbers;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t end = text.find(separator);
        if ((end == std::u16string_view::npos) != (i + 1 == count))
            return std::nullopt;
        numbers[i] = parseNumber(text.substr(0, end));
        text.remove_prefix(std::min(text.size(), end == std::u16string_view::npos ? end : end + 1));
    }
    return numbers;
}

template<std::size_t count>
SettingRefusal firstRefusal(const std::array<ParsedNumber, count>& numbers) {
    for (const ParsedNumber& parsed : numbers)
        if (parsed.refusal != SettingRefusal::none)
            return parsed.refusal;
    return SettingRefusal::none;
}

/// Parses a number that the setting allows and a value of type `Number` can hold.
template<typename Number>
ParsedNumber parseAllowed(const Setting& setting, std::u16string_view text) {
    const ParsedNumber parsed = parseNumber(text);
    if (parsed.refusal != SettingRefusal::none)
        return parsed;
    if (parsed.number > std::numeric_limits<Number>::max() || (setting.allowed && !setting.allowed(parsed.number)))
        return {SettingRefusal::outOfRange};
    return parsed;
}

template<typename Number>
SettingRefusal assign(const Setting& setting, Number& member, std::u16string_view text) {
    const ParsedNumber parsed = parseAllowed<Number>(setting, text);
    if (parsed.refusal == SettingRefusal::none)
        member = static_cast<Number>(parsed.number);
    return parsed.refusal;
}
template<typename Flag, unsigned size>
SettingRefusal assign(const Setting& setting, FlagSet<Flag, size>& member, std::u16string_view text) {
    const ParsedNumber parsed = parseAllowed<std::uint32_t>(setting, text);
    if (parsed.refusal == SettingRefusal::none)
        member = FlagSet<Flag, size>{parsed.number};
    return parsed.refusal;
}
template<std::size_t units>
SettingRefusal assign(const Setting& /*setting*/, FixedText<units>& member, std::u16string_view text) {
    if (text.size() >= units)
        return SettingRefusal::tooLong;
    return member.assign(text) ? SettingRefusal::none : SettingRefusal::wrongKind;
}
SettingRefusal assign(const Setting& /*setting*/, ViewCustom& member, std::u16string_view text) {
    const auto numbers = parseNumbers<std::tuple_size_v<ViewCustom>>(text, u',');
    if (!numbers)
        return SettingRefusal::wrongKind;
    if (const SettingRefusal refusal = firstRefusal(*numbers); refusal != SettingRefusal::none)
        return refusal;
    std::ranges::transform(*numbers, member.begin(), &ParsedNumber::number);
    return SettingRefusal::none;
}
SettingRefusal assign(const Setting& /*setting*/, SystemTime& member, std::u16string_view text) {
    if (text.empty()) {
        member = {};
        return SettingRefusal::none;
    }
    const auto numbers = parseNumbers<3>(text, u'-');
    if (!numbers || firstRefusal(*numbers) == SettingRefusal::wrongKind)
        return SettingRefusal::wrongKind;
    const auto field = [&](std::size_t i) {
        return static_cast<std::uint16_t>(std::min<std::uint32_t>((*numbers)[i].number, 0xFFFF));
    };
    const auto instant = platform::toFileTime({.year = field(0), .month = field(1), .day = field(2)});
    if (firstRefusal(*numbers) != SettingRefusal::none || !instant)
        return SettingRefusal::outOfRange;
    member = platform::toSystemTime(*instant).value_or(SystemTime{});
    return SettingRefusal::none;
}

/// The version takes only the number that it has anyway.
SettingRefusal assignVersion(const Setting& setting, std::u16string_view text) {
    const ParsedNumber parsed = parseAllowed<std::uint32_t>(setting, text);
    return parsed.refusal == SettingRefusal::outOfRange ? SettingRefusal::fixed : parsed.refusal;
}

} // namespace

std::vector<std::u16string_view> settingNames() {
    std::vector<std::u16string_view> names;
    for (const Setting& setting : settingTable)
        names.push_back(setting.name);
    return names;
}

std::optional<SettingValue> settingValue(const AppSettings& settings, std::u16string_view name) {
    const Setting* const setting = findSetting(name);
    if (setting == nullptr)
        return std::nullopt;
    return std::visit([&](auto member) { return valueOf(memberOf(settings, member)); }, setting->member);
}

std::u16string settingText(const SettingValue& value) {
    if (const auto* const text = std::get_if<std::u16string>(&value))
        return *text;
    std::u16string text;
    platform::appendInteger(text, std::get<std::uint32_t>(value));
    return text;
}

SettingRefusal setSetting(AppSettings& settings, std::u16string_view name, std::u16string_view text) {
    const Setting* const setting = findSetting(name);
    if (setting == nullptr)
        return SettingRefusal::unknownName;
    if (std::holds_alternative<VersionMember>(setting->member))
        return assignVersion(*setting, text);
    return std::visit([&](auto member) { return assign(*setting, memberOf(settings, member), text); }, setting->member);
}

} // namespace hourwright::app
