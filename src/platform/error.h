#pragma once

#include <cstdint>

namespace hourwright::platform {

/// Error numbers of the platform's calls, with the numbers that "Error: %d" shows.
enum class PlatformError : std::uint32_t {
    none = 0,
    fileNotFound = 2,
    pathNotFound = 3,
    accessDenied = 5,
    invalidHandle = 6,
    outOfMemory = 8,
    writeFault = 29,
    readFault = 30,
    locked = 33,
    invalidParameter = 87,
    brokenPipe = 109,
    openFailed = 110,
    diskFull = 112,
    alreadyExists = 183,
    noMoreItems = 259,
    revisionMismatch = 1306,
    fileCorrupt = 1392,
};

[[nodiscard]] constexpr std::uint32_t number(PlatformError error) {
    return static_cast<std::uint32_t>(error);
}

} // namespace hourwright::platform
