#pragma once

class QTreeWidget;

namespace hourwright::desktop {

/// Makes the timers' list one of two-line rows, for screens too narrow for seven columns: duration, start and break
/// above, the names below.
void showAsTwoLines(QTreeWidget& list);

/// The height of such a row in pixels.
[[nodiscard]] int twoLineHeight(const QTreeWidget& list);

} // namespace hourwright::desktop
