#include "platform/posix/unix_instance_channel.h"

#include "platform/instance_frame.h"
#include "platform/posix/instance_server.h"
#include "platform/posix/instance_socket.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace hourwright::platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* lockName = "instance.lock";

// Waits until the connection is ready; false when the time is over.
bool waitFor(const Descriptor& connection, short events, Clock::time_point deadline) {
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0)
            return false;
        pollfd wanted{.fd = connection.get(), .events = events, .revents = 0};
        const int ready = ::poll(&wanted, 1, static_cast<int>(left));
        if (ready > 0)
            return true;
        if (ready < 0 && errno != EINTR)
            return false;
    }
}

enum class Sent : std::uint8_t { all, notAll };

Sent sendAll(const Descriptor& connection, std::string_view bytes, Clock::time_point deadline) {
    while (!bytes.empty()) {
        const long sent = sendNow(connection, bytes.data(), bytes.size());
        if (sent < 0 || (sent == 0 && !waitFor(connection, POLLOUT, deadline)))
            return Sent::notAll;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return Sent::all;
}

std::optional<InstanceFrame> receiveReply(const Descriptor& connection, Clock::time_point deadline) {
    FrameReader reader;
    std::array<char, 8192> buffer; // NOLINT: filled by the call
    while (waitFor(connection, POLLIN, deadline)) {
        const ssize_t count = ::recv(connection.get(), buffer.data(), buffer.size(), 0);
        if (count < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (count <= 0 || !reader.add({buffer.data(), static_cast<std::size_t>(count)}))
            break;
        if (auto frame = reader.frame())
            return frame;
    }
    return std::nullopt;
}

class UnixInstanceChannel : public InstanceChannel {
public:
    explicit UnixInstanceChannel(std::filesystem::path folder) : folder_(std::move(folder)) {}

    [[nodiscard]] ClaimedInstance claim() override {
        ::mkdir(folder_.c_str(), S_IRWXU); // most often it is there already
        Descriptor folder = openOwnFolder(folder_);
        if (!folder)
            return {};
        Descriptor lock(::openat(folder.get(), lockName, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
        if (!lock)
            return {};
        if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
            return {.claim = errno == EWOULDBLOCK ? Claim::otherRuns : Claim::unavailable, .server = nullptr};
        auto server = UnixInstanceServer::make(std::move(folder), std::move(lock));
        const Claim result = server ? Claim::first : Claim::unavailable;
        return {.claim = result, .server = std::move(server)};
    }

    InstanceReply send(const InstanceMessage& message, std::chrono::milliseconds patience) override {
        const auto bytes = encodeFrame(static_cast<std::uint8_t>(message.kind), message.payload);
        if (!bytes)
            return {.delivery = Delivery::refused, .payload = {}};
        const Descriptor folder = openOwnFolder(folder_);
        const auto deadline = Clock::now() + patience;
        const auto [connection, crowded] = folder ? connectIn(folder, deadline) : Reached{};
        if (!connection)
            return {.delivery = crowded ? Delivery::unanswered : Delivery::nobody, .payload = {}};
        if (sendAll(connection, *bytes, deadline) == Sent::notAll)
            return {.delivery = Delivery::unanswered, .payload = {}};
        auto reply = receiveReply(connection, deadline);
        if (!reply)
            return {.delivery = Delivery::unanswered, .payload = {}};
        if (reply->number != replyHandled)
            return {.delivery = Delivery::refused, .payload = {}};
        return {.delivery = Delivery::answered, .payload = std::move(reply->payload)};
    }

private:
    std::filesystem::path folder_;
};

} // namespace

std::unique_ptr<InstanceChannel> makeInstanceChannel(const std::filesystem::path& folder) {
    return std::make_unique<UnixInstanceChannel>(folder);
}

} // namespace hourwright::platform
