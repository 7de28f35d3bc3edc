#include "desktop/window_place.h"

#include "platform/registry.h"

namespace hourwright::desktop {

namespace {

constexpr std::u16string_view valueName = u"WindowPlace";

} // namespace

bool restorePlace(QWidget& window, platform::Registry& registry) {
    const auto key = registry.open(platform::settingsKey);
    const auto value = key ? key->query(valueName) : std::nullopt;
    if (!value || value->type != platform::RegistryType::binary)
        return false;
    const auto size = static_cast<qsizetype>(value->data.size());
    return window.restoreGeometry(
        QByteArray(static_cast<const char*>(static_cast<const void*>(value->data.data())), size));
}

void savePlace(const QWidget& window, platform::Registry& registry) {
    const QByteArray place = window.saveGeometry();
    const auto key = registry.create(platform::settingsKey);
    if (key)
        key->writeBinary(valueName, std::as_bytes(std::span(place.data(), static_cast<std::size_t>(place.size()))));
}

} // namespace hourwright::desktop
