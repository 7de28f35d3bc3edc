#include "app/app_settings.h"

#include "resources/strings.h"

namespace hourwright::app {

namespace {

/// The text when it fits, else an empty one.
template<typename Text>
Text fitted(std::u16string_view text) {
    Text result;
    return result.assign(text) ? result : Text{};
}

Caption standardCaption(resources::StringId id) {
    return fitted<Caption>(resources::string(id));
}

} // namespace

AppSettings::AppSettings(const SettingsDevice& device)
    : custom1Label(standardCaption(resources::StringId::columnCustom1)),
      custom2Label(standardCaption(resources::StringId::columnCustom2)),
      custom3Label(standardCaption(resources::StringId::columnCustom3)),
      expenseCustom1Label(standardCaption(resources::StringId::columnCustom1)),
      expenseCustom2Label(standardCaption(resources::StringId::columnCustom2)), defaultCurrency(u"USD"),
      dataPath(fitted<FolderPath>(device.personalFolder)) {
    styleFlags.set(StyleFlag::softKeyMenus, device.osMajorVersion >= 5);
}

FontDescription AppSettings::createListFont(std::uint8_t charset, bool clearType) const {
    return {.tenthsOfPoint = fontSize * 10 + 70,
            .weight = static_cast<std::uint16_t>(styleFlags.has(StyleFlag::boldList) ? 700 : 400),
            .quality = clearType ? FontQuality::clearTypeNatural : FontQuality::standard,
            .charset = charset};
}

} // namespace hourwright::app
