#include "platform/posix/led_class_vibrator.h"

#include <fstream>
#include <string>
#include <thread>
#include <unistd.h>

namespace hourwright::platform {

LedClassVibrator::LedClassVibrator(const std::filesystem::path& folder) {
    std::error_code error;
    for (const auto& device : std::filesystem::directory_iterator(folder, error)) {
        const bool vibrates = device.path().filename().string().find("vibrator") != std::string::npos;
        if (vibrates && access((device.path() / "brightness").c_str(), W_OK) == 0)
            device_ = device.path();
    }
}

void LedClassVibrator::set(std::size_t led, bool on) {
    if (led != 1 || device_.empty())
        return;
    std::string brightness = "1";
    std::ifstream(device_ / "max_brightness") >> brightness;
    std::ofstream(device_ / "brightness") << (on ? brightness : std::string("0")) << '\n';
}

void LedClassVibrator::sleep(std::chrono::milliseconds time) {
    std::this_thread::sleep_for(time);
}

} // namespace hourwright::platform
