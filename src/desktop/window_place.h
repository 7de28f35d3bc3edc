#pragma once

#include "platform/registry.h"

#include <QWidget>

namespace hourwright::desktop {

/// Puts a window where it was when its place was saved; false when there is none that can be used.
bool restorePlace(QWidget& window, platform::Registry& registry);

/// Stores where a window is and how large; a failure is silent.
void savePlace(const QWidget& window, platform::Registry& registry);

} // namespace hourwright::desktop
