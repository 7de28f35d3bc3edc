#pragma once

#include "platform/system_timer.h"

namespace hourwright::test {

/// A system timer that a test fires by hand.
class ManualTimer : public platform::SystemTimer {
public:
    void start(std::chrono::milliseconds every, std::function<void()> tick) override {
        period = every;
        tick_ = std::move(tick);
    }
    void stop() override { tick_ = nullptr; }

    [[nodiscard]] bool isRunning() const { return tick_ != nullptr; }
    void fire() const {
        if (tick_)
            tick_();
    }

    std::chrono::milliseconds period{0};

private:
    std::function<void()> tick_;
};

} // namespace hourwright::test
