#pragma once

#include <chrono>
#include <cstddef>

namespace hourwright::platform {

/// The notification LEDs of a device, numbered from 0. On devices with at least two, LED 1 is the vibrator.
class NotificationLeds {
public:
    virtual ~NotificationLeds() = default;

    [[nodiscard]] virtual std::size_t count() const = 0;
    /// Switches an LED on or off; a failure is silent.
    virtual void set(std::size_t led, bool on) = 0;
    /// Lets the given time pass between switching on and off.
    virtual void sleep(std::chrono::milliseconds time) = 0;
};

/// Vibrates for a time: switches the vibrator on, waits, switches it off. Nothing happens on a device without one.
void vibrate(NotificationLeds& leds, std::chrono::milliseconds time);

} // namespace hourwright::platform
