#pragma once

#include "platform/notification_leds.h"

#include <filesystem>

namespace hourwright::platform {

/// The vibrator among the LED devices of Linux, which stands for LED 1 where there is one that may be written to; LED 0
/// is never switched. On all other machines there are no LEDs.
class LedClassVibrator : public NotificationLeds {
public:
    /// Looks for the device below the folder of all LED devices.
    explicit LedClassVibrator(const std::filesystem::path& folder = "/sys/class/leds");

    [[nodiscard]] std::size_t count() const override { return device_.empty() ? 0 : 2; }
    void set(std::size_t led, bool on) override;
    void sleep(std::chrono::milliseconds time) override;

private:
    std::filesystem::path device_;
};

} // namespace hourwright::platform
