#include "app/font_description.h"

namespace hourwright::app {

namespace {

constexpr std::u16string_view shellKey = u"Software\\Microsoft\\Shell";

} // namespace

bool clearTypeOn(platform::Registry& registry) {
    const auto key = registry.open(shellKey);
    return key != nullptr && key->readDword(u"ClearType") == std::uint32_t{1};
}

FontDescription dialogFont(bool clearType) {
    return {.quality = clearType ? FontQuality::clearTypeNatural : FontQuality::standard};
}

FontDescription captionFont(bool clearType) {
    return {.weight = 700, .quality = clearType ? FontQuality::clearType : FontQuality::standard};
}

} // namespace hourwright::app
