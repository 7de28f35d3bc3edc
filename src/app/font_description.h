#pragma once

#include "platform/registry.h"

#include <cstdint>
#include <string_view>

namespace hourwright::app {

/// How a font's edges are drawn. The numbers are the platform's.
enum class FontQuality : std::uint8_t { standard = 0, clearType = 5, clearTypeNatural = 6 };

/// A font as data; a face turns it into one of its own.
struct FontDescription {
    std::u16string_view face = u"Tahoma";
    std::int32_t tenthsOfPoint = 80;
    std::uint16_t weight = 400; ///< 400 normal, 700 bold
    FontQuality quality = FontQuality::standard;
    std::uint8_t charset = 0;

    friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

/// True when the shell is set to smooth fonts: its value `ClearType` is there and is 1.
[[nodiscard]] bool clearTypeOn(platform::Registry& registry);

/// The font of every dialog and of the controls in it.
[[nodiscard]] FontDescription dialogFont(bool clearType);

/// The bold font of the main window's captions.
[[nodiscard]] FontDescription captionFont(bool clearType);

} // namespace hourwright::app
