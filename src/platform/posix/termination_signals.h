#pragma once

#include <array>
#include <csignal>

namespace hourwright::platform {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a descriptor that becomes readable, so
/// that it can end in order. The second signal of a kind ends it at once, as without this. One object at a time; those
/// that are ignored stay ignored.
class TerminationSignals {
public:
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// Readable once a signal has come; -1 when there could be none.
    [[nodiscard]] int descriptor() const { return ends_[0]; }

private:
    static constexpr std::array numbers{SIGTERM, SIGINT, SIGHUP};

    std::array<int, 2> ends_{-1, -1};
    std::array<struct sigaction, numbers.size()> before_{};
};

} // namespace hourwright::platform
