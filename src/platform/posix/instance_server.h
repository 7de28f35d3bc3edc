#pragma once

#include "platform/instance_channel.h"
#include "platform/instance_frame.h"
#include "platform/posix/instance_socket.h"

#include <chrono>
#include <list>
#include <memory>

namespace hourwright::platform {

/// How long a sender may take for its message and for fetching the reply, and how many may be at it at once; the
/// longest at it gives way.
inline constexpr std::chrono::milliseconds connectionPatience{2000};
inline constexpr std::size_t maxConnections = 64;

/// The server on an epoll descriptor, which is readable for a new connection, bytes, and a deadline that has passed.
class UnixInstanceServer : public InstanceServer {
public:
    /// Takes over the folder and the lock in it that makes this program the running copy. Null when it cannot listen.
    [[nodiscard]] static std::unique_ptr<UnixInstanceServer> make(Descriptor folder, Descriptor lock);
    ~UnixInstanceServer() override;
    UnixInstanceServer(const UnixInstanceServer&) = delete;
    UnixInstanceServer& operator=(const UnixInstanceServer&) = delete;

    void setHandler(InstanceHandler handler) override { handler_ = std::move(handler); }
    [[nodiscard]] int descriptor() const override { return poll_.get(); }
    void service() override;

private:
    using Clock = std::chrono::steady_clock;

    struct Connection {
        Descriptor socket;
        Clock::time_point deadline;
        FrameReader reader;
        std::string reply; ///< what of it is not sent yet
        bool replying = false;
    };

    UnixInstanceServer(Descriptor folder, Descriptor lock) : folder_(std::move(folder)), lock_(std::move(lock)) {}
    [[nodiscard]] bool begin();
    [[nodiscard]] bool watch(const Descriptor& file, std::uint32_t events);
    void acceptAll();
    void pauseAccepting();
    [[nodiscard]] bool proceed(Connection& connection);
    [[nodiscard]] bool receive(Connection& connection);
    [[nodiscard]] bool sendReply(Connection& connection);
    [[nodiscard]] bool answer(Connection& connection, const InstanceFrame& frame);
    void setTimer();

    Descriptor folder_;
    Descriptor lock_;
    Descriptor listener_;
    Descriptor timer_;
    Descriptor poll_;
    std::list<Connection> connections_;
    InstanceHandler handler_;
    bool serving_ = false;
    bool paused_ = false;
};

} // namespace hourwright::platform
