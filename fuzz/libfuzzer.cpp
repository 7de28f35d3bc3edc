// The entry that libFuzzer calls; the build says which target it is for.

#include "fuzz/targets.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    hourwright::fuzz::HOURWRIGHT_FUZZ_TARGET(std::as_bytes(std::span(data, size)));
    return 0;
}
