#pragma once

#include <QWidget>

namespace hourwright::desktop {

/// The height, in device-independent pixels, that a finger needs of a control.
inline constexpr int touchTarget = 40;

/// True when the screen is a handheld's: less than 600 device-independent pixels wide. Dialogs fill it then, labels
/// stand above their fields, and controls are at least `touchTarget` high.
[[nodiscard]] bool isHandheld();

} // namespace hourwright::desktop
