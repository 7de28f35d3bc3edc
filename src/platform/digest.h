#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace hourwright::platform {

/// A digest of bytes that are added one piece after the other.
class Digest {
public:
    virtual ~Digest() = default;

    virtual void add(std::span<const std::byte> bytes) = 0;
    /// The digest of all that was added, in lower-case hexadecimal digits; what comes next begins a new one.
    [[nodiscard]] virtual std::string finish() = 0;
};

} // namespace hourwright::platform
