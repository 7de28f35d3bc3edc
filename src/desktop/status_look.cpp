#include "desktop/status_look.h"

#include "desktop/icons.h"

#include <QPixmap>
#include <algorithm>
#include <array>

namespace hourwright::desktop {

namespace {

// Texts must be legible on the ground of the list, areas are seen beside each other.
struct OfStyle {
    QRgb lightText; // 0: the text's own colour
    QRgb darkText;
    QRgb fill;
};

// Not billable steps back.
constexpr std::array<OfStyle, 4> ofStyle{{{0xFF5C6166, 0xFFA6ABB1, 0xFF7A868F},
                                          {0, 0, 0xFF2F7FD3},
                                          {0xFF8A4B00, 0xFFE8B568, 0xFFD8911A},
                                          {0xFF1A6B38, 0xFF7FCB94, 0xFF2F9E5F}}};

std::size_t indexOf(store::EntryStatus status) {
    return std::min<std::size_t>(static_cast<std::size_t>(status), ofStyle.size() - 1);
}

} // namespace

QColor statusColour(store::EntryStatus status, const app::DisplaySettings& display, const QPalette& palette) {
    const std::size_t index = indexOf(status);
    if (!display.colours[index].followsStyle())
        return QColor::fromRgb(display.colours[index].rgb);
    if (ofStyle[index].lightText == 0)
        return palette.color(QPalette::Text);
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    return QColor::fromRgb(dark ? ofStyle[index].darkText : ofStyle[index].lightText);
}

QColor statusFill(store::EntryStatus status, const app::DisplaySettings& display) {
    const app::StatusColour chosen = display.colours[indexOf(status)];
    return QColor::fromRgb(chosen.followsStyle() ? ofStyle[indexOf(status)].fill : chosen.rgb);
}

const QIcon& StatusIcons::of(store::EntryStatus status, bool note, int size, qreal ratio) {
    const int key = static_cast<int>(status) * 2 + (note ? 1 : 0);
    const int pixels = qRound(size * ratio);
    QIcon& made = icons_[{key, pixels}];
    if (made.isNull()) {
        const QIcon drawn = statusIcon(status, note);
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
            QPixmap pixmap = drawn.pixmap(QSize(pixels, pixels), 1.0, mode);
            pixmap.setDevicePixelRatio(ratio);
            made.addPixmap(pixmap, mode);
        }
    }
    return made;
}

} // namespace hourwright::desktop
