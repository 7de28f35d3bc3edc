#pragma once

#include "platform/error.h"
#include "resources/strings.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace hourwright::billing {

/// The longest name of a client, project, task or contact that can be edited, in UTF-16 units.
inline constexpr std::size_t maxNameLength = 127;

/// Why a name was refused: the message, and for the message "Error: %d" its number.
struct NameRefusal {
    resources::StringId message;
    platform::PlatformError error = platform::PlatformError::none;

    friend bool operator==(const NameRefusal&, const NameRefusal&) = default;
};

/// Checks a typed name of a project, task or contact: one that is too long is refused, never cut (error 87).
[[nodiscard]] std::optional<NameRefusal> checkName(std::u16string_view name);

/// Checks a typed client name. It must not be empty or that of the default rates, which stand beside the clients.
[[nodiscard]] std::optional<NameRefusal> checkClientName(std::u16string_view name);

} // namespace hourwright::billing
