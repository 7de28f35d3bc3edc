#pragma once

#include <chrono>
#include <functional>

namespace hourwright::platform {

/// A timer of the system that calls back on the thread of the message loop, never in the middle of other work. One
/// late call stands for several missed ones.
class SystemTimer {
public:
    virtual ~SystemTimer() = default;

    /// Calls `tick` once a period until it is stopped; starting it again replaces period and callback.
    virtual void start(std::chrono::milliseconds period, std::function<void()> tick) = 0;
    virtual void stop() = 0;
};

} // namespace hourwright::platform
