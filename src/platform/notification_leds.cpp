#include "platform/notification_leds.h"

namespace hourwright::platform {

void vibrate(NotificationLeds& leds, std::chrono::milliseconds time) {
    constexpr std::size_t vibrator = 1;
    if (leds.count() <= vibrator)
        return;
    leds.set(vibrator, true);
    leds.sleep(time);
    leds.set(vibrator, false);
}

} // namespace hourwright::platform
