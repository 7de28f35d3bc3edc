#pragma once

#include "resources/strings.h"
#include "resources/text.h"

#include <QString>
#include <string>
#include <string_view>

/// Texts to and from the toolkit, which also keeps them in UTF-16.
namespace hourwright::platform {

[[nodiscard]] inline QString toQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline QString toQString(const resources::Text& text) {
    return toQString(text.text);
}

[[nodiscard]] inline QString toQString(resources::StringId id) {
    return toQString(resources::string(id));
}

[[nodiscard]] inline std::u16string toU16(const QString& text) {
    return text.toStdU16String();
}

} // namespace hourwright::platform
