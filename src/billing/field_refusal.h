#pragma once

#include "platform/error.h"
#include "resources/strings.h"

#include <optional>

namespace hourwright::billing {

/// Why something typed was refused: the field that gets the focus, the message, and for the message "Error: %d" its
/// number.
template<typename Field>
struct FieldRefusal {
    Field field;
    resources::StringId message;
    platform::PlatformError error = platform::PlatformError::none;

    friend bool operator==(const FieldRefusal&, const FieldRefusal&) = default;
};

/// A value that its field cannot hold, reported as the failed write that it would become.
template<typename Field>
[[nodiscard]] FieldRefusal<Field> cannotHold(Field field) {
    return {field, resources::StringId::error, platform::PlatformError::invalidParameter};
}

} // namespace hourwright::billing
