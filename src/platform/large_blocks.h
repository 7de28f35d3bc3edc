#pragma once

#include <memory_resource>

namespace hourwright::platform {

/// Memory for what is built up in blocks and let go of together. A large block asks the system for large pages: getting
/// and clearing thousands of small ones takes longer than filling them. Lives as long as the program; for any thread.
[[nodiscard]] std::pmr::memory_resource& largeBlocks();

} // namespace hourwright::platform
