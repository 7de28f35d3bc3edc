#pragma once

#include "store/entry_types.h"

#include <QIcon>
#include <QString>

namespace hourwright::desktop {

/// The program's own icon, in colour.
[[nodiscard]] QIcon applicationIcon();

/// One of the program's own icons by name, drawn in the text colour of the palette, so that it suits light and dark.
[[nodiscard]] QIcon icon(const QString& name);

/// The icon of a billing status, with the sign for a note over it if wanted. The statuses differ in shape, not in
/// colour alone.
[[nodiscard]] QIcon statusIcon(store::EntryStatus status, bool note);

} // namespace hourwright::desktop
