#include "app/options_draft.h"

#include "app/export_options.h"
#include "app/setting_table.h"
#include "resources/strings.h"
#include "resources/texts/options.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

namespace hourwright::app {

namespace {

namespace texts = resources::options;
using resources::StringId;
using Texts = std::vector<std::u16string>;

constexpr int smallestFont = 7; // points
constexpr int largestFont = 72;
constexpr std::array intervals{StringId::interval10, StringId::interval15, StringId::interval20, StringId::interval30,
                               StringId::interval6};
constexpr std::uint16_t fallbackInterval = 3;
constexpr int hourSymbolCount = 4;

Texts listOf(std::initializer_list<std::u16string_view> views) {
    return {views.begin(), views.end()};
}

std::u16string digits(int number) {
    const std::string text = std::to_string(number);
    return {text.begin(), text.end()};
}

Texts fontTexts() {
    Texts result;
    for (int points = smallestFont; points <= largestFont; ++points) {
        std::u16string text(texts::points.text);
        result.push_back(text.replace(text.find(u"%d"), 2, digits(points)));
    }
    return result;
}

Texts encodingTexts() {
    Texts result{std::u16string(texts::encodingUnnamed.text)};
    for (std::uint32_t index = 1; index < xmlEncodingCount; ++index)
        result.emplace_back(declaredName(xmlEncoding(index)));
    return result;
}

// Blanks cannot be seen, so they are named; the other substitutes are shown as they are.
Texts lineBreakTexts() {
    Texts result = listOf({texts::oneBlank.text, texts::twoBlanks.text});
    for (std::uint32_t index = 2; index < lineBreakSubstituteCount; ++index)
        result.emplace_back(lineBreakSubstitute(index));
    return result;
}

Texts granularityTexts() {
    Texts result;
    for (const std::uint16_t minutes : granularities)
        result.push_back(digits(minutes));
    return result;
}

Texts intervalTexts() {
    Texts result;
    for (const StringId id : intervals)
        result.emplace_back(resources::string(id));
    return result;
}

int granularityIndex(std::uint16_t minutes) {
    const auto* const found = std::ranges::find(granularities, minutes);
    return found == granularities.end() ? -1 : static_cast<int>(found - granularities.begin());
}

int within(std::uint32_t index, std::uint32_t count, int otherwise) {
    return index < count ? static_cast<int>(index) : otherwise;
}

// A flag of the settings or of the display choices.
struct FlagPlace {
    StyleFlag style{};
    bool AppSettings::*setting = nullptr;
    bool DisplaySettings::*display = nullptr;
};

FlagPlace placeOf(OptionFlag flag) {
    switch (flag) {
    case OptionFlag::weekNumber: return {.style = StyleFlag::weekNumber};
    case OptionFlag::bold: return {.style = StyleFlag::boldList};
    case OptionFlag::softKeys: return {.style = StyleFlag::softKeyMenus};
    case OptionFlag::billable: return {.style = StyleFlag::billable};
    case OptionFlag::granularity: return {.style = StyleFlag::granularity};
    case OptionFlag::clientName: return {.display = &DisplaySettings::showClientName};
    case OptionFlag::statusIcon: return {.display = &DisplaySettings::showStatusIcon};
    case OptionFlag::preciseMinutes: return {.style = StyleFlag::preciseMinutes};
    case OptionFlag::askClose: return {.setting = &AppSettings::askClose};
    case OptionFlag::vibrate: break;
    }
    return {.style = StyleFlag::vibrate};
}

} // namespace

std::vector<std::u16string> optionTexts(OptionList list) {
    switch (list) {
    case OptionList::weekStart: return listOf({texts::sunday.text, texts::monday.text});
    case OptionList::fontSize: return fontTexts();
    case OptionList::itemTap: return listOf({texts::tapOpens.text, texts::tapShowsMenu.text});
    case OptionList::encoding: return encodingTexts();
    case OptionList::lineBreak: return lineBreakTexts();
    case OptionList::hourSymbol:
        return listOf(
            {texts::noSymbol.text, texts::symbolShort.text, texts::symbolMedium.text, texts::symbolLong.text});
    case OptionList::granularity: return granularityTexts();
    case OptionList::entryTime:
        return listOf(
            {texts::timeNone.text, texts::timeStart.text, texts::timeStartAndEnd.text, texts::timeDuration.text});
    case OptionList::durationInterval: return intervalTexts();
    case OptionList::breakTime: break;
    }
    return listOf({resources::string(StringId::breakManually), resources::string(StringId::breakUseTimer)});
}

int optionIndex(const OptionsDraft& draft, OptionList list) {
    const AppSettings& settings = draft.settings;
    switch (list) {
    case OptionList::weekStart: return settings.styleFlags.has(StyleFlag::weekStartsMonday) ? 1 : 0;
    case OptionList::fontSize: return within(settings.fontSize, largestFont - smallestFont + 1, -1);
    case OptionList::itemTap: return settings.styleFlags.has(StyleFlag::secondTapCommand) ? 1 : 0;
    case OptionList::encoding: return static_cast<int>(xmlEncoding(settings.encoding));
    case OptionList::lineBreak: return within(settings.breakSubstitute, lineBreakSubstituteCount, 0);
    case OptionList::hourSymbol: return within(settings.hourSymbol, hourSymbolCount, -1);
    case OptionList::granularity: return granularityIndex(settings.minTime);
    case OptionList::entryTime: return static_cast<int>(draft.display.entryTime);
    case OptionList::durationInterval: return within(settings.timeInterval, intervals.size(), fallbackInterval);
    case OptionList::breakTime: break;
    }
    return within(settings.breakOption, 2, 0);
}

void setOption(OptionsDraft& draft, OptionList list, int index) {
    AppSettings& settings = draft.settings;
    const auto number = static_cast<std::uint16_t>(index);
    switch (list) {
    case OptionList::weekStart: settings.styleFlags.set(StyleFlag::weekStartsMonday, index == 1); break;
    case OptionList::fontSize: settings.fontSize = number; break;
    case OptionList::itemTap: settings.styleFlags.set(StyleFlag::secondTapCommand, index == 1); break;
    case OptionList::encoding: settings.encoding = number; break;
    case OptionList::lineBreak: settings.breakSubstitute = number; break;
    case OptionList::hourSymbol: settings.hourSymbol = number; break;
    case OptionList::granularity: settings.minTime = granularities.at(number); break;
    case OptionList::entryTime: draft.display.entryTime = static_cast<EntryTimeShown>(number); break;
    case OptionList::durationInterval: settings.timeInterval = number; break;
    case OptionList::breakTime: settings.breakOption = number; break;
    }
}

bool optionFlag(const OptionsDraft& draft, OptionFlag flag) {
    const FlagPlace place = placeOf(flag);
    if (place.setting != nullptr)
        return draft.settings.*place.setting;
    return place.display != nullptr ? draft.display.*place.display : draft.settings.styleFlags.has(place.style);
}

void setOption(OptionsDraft& draft, OptionFlag flag, bool on) {
    const FlagPlace place = placeOf(flag);
    if (place.setting != nullptr)
        draft.settings.*place.setting = on;
    else if (place.display != nullptr)
        draft.display.*place.display = on;
    else
        draft.settings.styleFlags.set(place.style, on);
}

bool needsRestart(const AppSettings& before, const AppSettings& after) {
    return before.styleFlags.has(StyleFlag::softKeyMenus) != after.styleFlags.has(StyleFlag::softKeyMenus);
}

} // namespace hourwright::app
