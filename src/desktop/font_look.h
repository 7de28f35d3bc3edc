#pragma once

#include "app/font_description.h"

#include <QFont>

namespace hourwright::desktop {

/// Gives a font the weight and the smoothness of a description; its face and size stay.
inline void takeLook(QFont& font, const app::FontDescription& description) {
    font.setBold(description.weight >= QFont::Bold);
    if (description.quality != app::FontQuality::standard)
        font.setStyleStrategy(QFont::PreferAntialias);
}

} // namespace hourwright::desktop
