#pragma once

#include "platform/system_timer.h"

#include <QTimer>

namespace hourwright::platform {

/// A precise timer of the event loop.
class QtSystemTimer : public SystemTimer {
public:
    void start(std::chrono::milliseconds period, std::function<void()> tick) override {
        timer_.disconnect();
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.callOnTimeout(std::move(tick));
        timer_.start(period);
    }
    void stop() override { timer_.stop(); }

private:
    QTimer timer_;
};

} // namespace hourwright::platform
