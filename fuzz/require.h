#pragma once

#include <stdexcept>
#include <string>

namespace hourwright::fuzz {

/// A statement of a target that did not hold.
class Broken : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Throws `Broken`, with file and line, unless the statement holds.
inline void require(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
    if (!holds)
        throw Broken(std::string(file) + ':' + std::to_string(line) + ": does not hold");
}

} // namespace hourwright::fuzz
