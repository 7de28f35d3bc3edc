#include "platform/posix/termination_signals.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace hourwright::platform {

namespace {

std::atomic<int> writeEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler uses it");

void onSignal(int number) {
    const int error = errno;
    const auto byte = static_cast<unsigned char>(number);
    if (write(writeEnd, &byte, 1) < 0) {
        // The pipe is full of signals that nobody has read; one of them is enough.
    }
    errno = error;
}

} // namespace

TerminationSignals::TerminationSignals() {
    if (pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        ends_ = {-1, -1};
        return;
    }
    writeEnd = ends_[1];
    struct sigaction action {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        sigaction(numbers[i], nullptr, &before_[i]);
        if (before_[i].sa_handler != SIG_IGN)
            sigaction(numbers[i], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    if (ends_[0] < 0)
        return;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        sigaction(numbers[i], &before_[i], nullptr);
    writeEnd = -1;
    close(ends_[0]);
    close(ends_[1]);
}

} // namespace hourwright::platform
