#pragma once

#include "app/display_settings.h"
#include "store/entry_types.h"

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <map>

namespace hourwright::desktop {

/// The colour of a record's texts: the chosen one, else one of the style that is legible on its light or dark ground.
[[nodiscard]] QColor statusColour(store::EntryStatus status, const app::DisplaySettings& display,
                                  const QPalette& palette);

/// The colour that stands for a status in areas: the chosen one, else one of the style.
[[nodiscard]] QColor statusFill(store::EntryStatus status, const app::DisplaySettings& display);

/// The icons of the statuses, drawn once for a size and palette.
class StatusIcons {
public:
    [[nodiscard]] const QIcon& of(store::EntryStatus status, bool note, int size, qreal ratio);
    /// The palette is another.
    void clear() { icons_.clear(); }

private:
    std::map<std::pair<int, int>, QIcon> icons_;
};

} // namespace hourwright::desktop
