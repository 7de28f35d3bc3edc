#include "app/display_settings.h"

#include <optional>
#include <string_view>

namespace hourwright::app {

namespace {

// The stored values: a name, how the number is read (false: it means nothing) and what is written.
struct Value {
    std::u16string_view name;
    bool (*read)(DisplaySettings&, std::uint32_t);
    std::uint32_t (*written)(const DisplaySettings&);
};

template<bool DisplaySettings::*flag>
constexpr Value yesNo(std::u16string_view name) {
    return {name,
            [](DisplaySettings& settings, std::uint32_t number) {
                settings.*flag = number == 1;
                return number <= 1;
            },
            [](const DisplaySettings& settings) { return settings.*flag ? 1U : 0U; }};
}

template<std::size_t status>
constexpr Value colour(std::u16string_view name) {
    return {name,
            [](DisplaySettings& settings, std::uint32_t number) {
                settings.colours[status].rgb = number;
                return number <= 0xFF'FFFF || number == StatusColour::ofStyle;
            },
            [](const DisplaySettings& settings) { return settings.colours[status].rgb; }};
}

constexpr Value entryTimeValue{
    u"DisplayTime",
    [](DisplaySettings& settings, std::uint32_t number) {
        settings.entryTime = static_cast<EntryTimeShown>(number);
        return number < entryTimeShownCount;
    },
    [](const DisplaySettings& settings) { return static_cast<std::uint32_t>(settings.entryTime); }};

constexpr std::array values = {
    entryTimeValue,
    yesNo<&DisplaySettings::showClientName>(u"DisplayClient"),
    yesNo<&DisplaySettings::showStatusIcon>(u"DisplayIcon"),
    yesNo<&DisplaySettings::calendar>(u"DisplayCalendar"),
    colour<0>(u"ColourNonBillable"),
    colour<1>(u"ColourBillable"),
    colour<2>(u"ColourBilled"),
    colour<3>(u"ColourPaid"),
};

} // namespace

DisplaySettings DisplaySettings::load(platform::Registry& registry) {
    DisplaySettings settings;
    const auto key = registry.open(platform::settingsKey);
    if (key == nullptr)
        return settings;
    for (const Value& value : values) {
        const auto number = key->readDword(value.name);
        DisplaySettings changed = settings;
        if (number && value.read(changed, *number))
            settings = changed;
    }
    return settings;
}

bool DisplaySettings::save(platform::Registry& registry) const {
    const auto key = registry.create(platform::settingsKey);
    const auto batch = key == nullptr ? nullptr : key->batch();
    if (batch == nullptr)
        return false;
    bool saved = true;
    for (const Value& value : values)
        saved = key->writeDword(value.name, value.written(*this)) && saved;
    return batch->commit() && saved;
}

} // namespace hourwright::app
