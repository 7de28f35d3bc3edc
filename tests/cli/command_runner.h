#pragma once

#include "support/fake_clock.h"
#include "support/temporary_directory.h"

#include <map>
#include <string>
#include <vector>

namespace hourwright::test {

/// Runs command lines in this process, all in one fresh home, and catches what they print. There is no terminal.
class CommandRunner {
public:
    struct Result {
        int exitCode = 0;
        std::string out;
        std::string err;

        friend bool operator==(const Result&, const Result&) = default;
    };

    [[nodiscard]] Result run(const std::vector<std::string>& words);

    FakeClock clock;
    std::map<std::string, std::string> variables{{"HOME", "/nowhere"}}; ///< the environment, without HOURWRIGHT_HOME
    /// From so many bytes on, standard output is full.
    std::size_t outCapacity = std::string::npos;
    bool outBroken = false; ///< the reader of standard output has gone

    [[nodiscard]] std::filesystem::path home() const { return directory_.path(); }

private:
    TemporaryDirectory directory_;
};

} // namespace hourwright::test
