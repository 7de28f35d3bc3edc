#include "desktop/lists/status_look.h"

#include "desktop/icons.h"

#include <QPixmap>
#include <algorithm>
#include <array>

namespace hourwright::desktop {

namespace {

struct OfStyle {
    QRgb light;
    QRgb dark;
};

// Not billable steps back, billable is the text's own colour.
constexpr std::array<OfStyle, 4> ofStyle{
    {{0xFF5C6166, 0xFFA6ABB1}, {0, 0}, {0xFF8A4B00, 0xFFE8B568}, {0xFF1A6B38, 0xFF7FCB94}}};

} // namespace

QColor statusColour(store::EntryStatus status, const app::DisplaySettings& display, const QPalette& palette) {
    const auto index = std::min<std::size_t>(static_cast<std::size_t>(status), ofStyle.size() - 1);
    if (!display.colours[index].followsStyle())
        return QColor::fromRgb(display.colours[index].rgb);
    if (ofStyle[index].light == 0)
        return palette.color(QPalette::Text);
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    return QColor::fromRgb(dark ? ofStyle[index].dark : ofStyle[index].light);
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
