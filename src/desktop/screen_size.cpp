#include "desktop/screen_size.h"

#include <QGuiApplication>
#include <QScreen>

namespace hourwright::desktop {

bool isHandheld() {
    constexpr int widthOfDesktops = 600;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr && screen->availableGeometry().width() < widthOfDesktops;
}

} // namespace hourwright::desktop
