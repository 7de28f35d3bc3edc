#include "platform/posix/instance_server.h"

#include <array>
#include <cerrno>
#include <sys/epoll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace hourwright::platform {

namespace {

constexpr std::chrono::milliseconds acceptPause{500};
constexpr int acceptedAtOnce = 16; // then they are heard, before others push them out

bool wouldBlock() {
    return errno == EAGAIN || errno == EWOULDBLOCK;
}

} // namespace

std::unique_ptr<UnixInstanceServer> UnixInstanceServer::make(Descriptor folder, Descriptor lock) {
    std::unique_ptr<UnixInstanceServer> server(new UnixInstanceServer(std::move(folder), std::move(lock)));
    return server->begin() ? std::move(server) : nullptr;
}

bool UnixInstanceServer::begin() {
    poll_ = Descriptor(::epoll_create1(EPOLL_CLOEXEC));
    timer_ = Descriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC));
    listener_ = listenIn(folder_);
    return poll_ && timer_ && listener_ && watch(timer_, EPOLLIN) && watch(listener_, EPOLLIN);
}

// The socket goes while the lock is still held: what stands there later belongs to the next running copy. Closing alone
// would leave the lock with a child process that has inherited the open file.
UnixInstanceServer::~UnixInstanceServer() {
    if (listener_)
        removeSocket(folder_);
    listener_.reset();
    ::flock(lock_.get(), LOCK_UN);
}

bool UnixInstanceServer::watch(const Descriptor& file, std::uint32_t events) {
    epoll_event event{};
    event.events = events;
    event.data.fd = file.get();
    return ::epoll_ctl(poll_.get(), EPOLL_CTL_ADD, file.get(), &event) == 0 ||
           (errno == EEXIST && ::epoll_ctl(poll_.get(), EPOLL_CTL_MOD, file.get(), &event) == 0);
}

void UnixInstanceServer::service() {
    if (serving_)
        return;
    serving_ = true;
    std::uint64_t expirations = 0;
    if (::read(timer_.get(), &expirations, sizeof expirations) > 0 && paused_)
        paused_ = !watch(listener_, EPOLLIN);
    acceptAll();
    const auto now = Clock::now();
    std::erase_if(connections_,
                  [&](Connection& connection) { return !proceed(connection) || connection.deadline <= now; });
    setTimer();
    serving_ = false;
}

void UnixInstanceServer::acceptAll() {
    for (int i = 0; i < acceptedAtOnce && !paused_; ++i) {
        Descriptor socket(::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!socket) {
            if (errno == EINTR || errno == ECONNABORTED)
                continue;
            if (!wouldBlock())
                pauseAccepting();
            return;
        }
        if (!isOwnPeer(socket) || !watch(socket, EPOLLIN))
            continue;
        if (connections_.size() >= maxConnections)
            connections_.pop_front();
        connections_.push_back(
            {.socket = std::move(socket), .deadline = Clock::now() + connectionPatience, .reader = {}, .reply = {}});
    }
}

// Without file descriptors to give, the waiting connection would keep this end readable and the program busy.
void UnixInstanceServer::pauseAccepting() {
    paused_ = watch(listener_, 0);
}

// False when the connection has come to its end, a good or a bad one.
bool UnixInstanceServer::proceed(Connection& connection) {
    return connection.replying ? sendReply(connection) : receive(connection);
}

bool UnixInstanceServer::receive(Connection& connection) {
    std::array<char, 8192> buffer; // NOLINT: filled by the call
    while (true) {
        const ssize_t count = ::recv(connection.socket.get(), buffer.data(), buffer.size(), 0);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return wouldBlock();
        if (count == 0 || !connection.reader.add({buffer.data(), static_cast<std::size_t>(count)}))
            return false;
        if (const auto frame = connection.reader.frame())
            return answer(connection, *frame);
    }
}

bool UnixInstanceServer::answer(Connection& connection, const InstanceFrame& frame) {
    const InstanceMessage message{.kind = static_cast<InstanceMessageKind>(frame.number), .payload = frame.payload};
    const auto reply = handler_ ? handler_(message) : std::nullopt;
    const auto bytes = encodeFrame(reply ? replyHandled : replyNotUnderstood, reply.value_or(""));
    connection.reply = bytes.value_or(encodeFrame(replyNotUnderstood, "").value_or(""));
    connection.replying = true;
    connection.deadline = Clock::now() + connectionPatience;
    return sendReply(connection) && watch(connection.socket, EPOLLOUT);
}

bool UnixInstanceServer::sendReply(Connection& connection) {
    while (!connection.reply.empty()) {
        const long sent = sendNow(connection.socket, connection.reply.data(), connection.reply.size());
        if (sent <= 0)
            return sent == 0;
        connection.reply.erase(0, static_cast<std::size_t>(sent));
    }
    return false;
}

void UnixInstanceServer::setTimer() {
    auto next = Clock::time_point::max();
    for (const Connection& connection : connections_)
        next = std::min(next, connection.deadline);
    if (paused_)
        next = std::min(next, Clock::now() + acceptPause);
    itimerspec when{};
    if (next != Clock::time_point::max()) {
        const auto left = std::max(std::chrono::nanoseconds(next - Clock::now()), std::chrono::nanoseconds(1));
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        when.it_value.tv_sec = seconds.count();
        when.it_value.tv_nsec = (left - seconds).count();
    }
    ::timerfd_settime(timer_.get(), 0, &when, nullptr);
}

} // namespace hourwright::platform
