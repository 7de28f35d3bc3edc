#pragma once

#include "platform/idle_time.h"

namespace hourwright::platform {

/// Asks the session's screen saver, and where there is none the login manager, over the message bus.
class SessionIdleTime : public IdleTime {
public:
    [[nodiscard]] std::optional<std::chrono::seconds> read() override;
};

} // namespace hourwright::platform
