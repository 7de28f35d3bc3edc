#pragma once

#include <chrono>
#include <optional>

namespace hourwright::platform {

/// How long the user has not touched the machine.
class IdleTime {
public:
    virtual ~IdleTime() = default;

    /// Nothing when the session does not tell.
    [[nodiscard]] virtual std::optional<std::chrono::seconds> read() = 0;
};

} // namespace hourwright::platform
