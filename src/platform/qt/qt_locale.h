#pragma once

#include "platform/locale.h"

#include <QLocale>
#include <QString>

namespace hourwright::platform {

/// The toolkit's idea of a locale, for fields that show dates and times themselves. "C" and "POSIX" are American
/// English there too.
[[nodiscard]] inline QLocale toQLocale(const Locale& locale) {
    const QLocale named(QString::fromStdString(locale.name()));
    return named.language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates) : named;
}

} // namespace hourwright::platform
