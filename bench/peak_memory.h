#pragma once

#include <fstream>
#include <string>

namespace hourwright::bench {

/// The most memory in megabytes that this process has had so far, as the kernel counts it.
inline double peakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::stod(line.substr(6)) / 1024;
    return 0;
}

} // namespace hourwright::bench
