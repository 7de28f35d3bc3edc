#include "platform/posix/posix_io.h"

#include "platform/posix/posix_error.h"

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <unistd.h>

namespace hourwright::platform {

namespace {

// Keeps the signal of a closed pipe from this thread for a scope, and takes it away when it came in between.
class NoPipeSignal {
public:
    NoPipeSignal() {
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        sigemptyset(&pipe_);
        sigaddset(&pipe_, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
    }
    ~NoPipeSignal() {
        constexpr timespec noWait{};
        if (!wasPending_)
            while (sigtimedwait(&pipe_, nullptr, &noWait) < 0 && errno == EINTR)
                ;
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    NoPipeSignal(const NoPipeSignal&) = delete;
    NoPipeSignal& operator=(const NoPipeSignal&) = delete;

private:
    sigset_t pipe_;
    sigset_t before_;
    bool wasPending_ = false;
};

void waitUntilWritable(int file) {
    pollfd wanted{.fd = file, .events = POLLOUT, .revents = 0};
    poll(&wanted, 1, -1);
}

} // namespace

PlatformError writeAll(int file, std::string_view bytes) {
    const NoPipeSignal guard;
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0)
            return PlatformError::writeFault;
        else if (errno == EAGAIN)
            waitUntilWritable(file);
        else if (errno != EINTR)
            return fromErrno(errno);
    }
    return PlatformError::none;
}

} // namespace hourwright::platform
