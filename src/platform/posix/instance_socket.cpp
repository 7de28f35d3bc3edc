#include "platform/posix/instance_socket.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace hourwright::platform {

namespace {

constexpr const char* socketName = "instance.sock";
constexpr int waitingConnections = 64;
constexpr std::chrono::milliseconds pauseWhileFull{5};

// Through the open folder, so that its path may be as long as it likes and cannot be exchanged for another on the way.
sockaddr_un addressIn(const Descriptor& folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder.get()) + '/' + socketName;
    std::memcpy(address.sun_path, path.data(), path.size()); // always shorter than the field
    return address;
}

Descriptor makeSocket() {
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

template<typename Call>
bool withAddress(const Descriptor& folder, const Descriptor& socket, Call call) {
    const sockaddr_un address = addressIn(folder);
    const auto* pointer = static_cast<const sockaddr*>(static_cast<const void*>(&address));
    int result = 0;
    do {
        result = call(socket.get(), pointer, static_cast<socklen_t>(sizeof address));
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

void Descriptor::reset() {
    if (number_ >= 0)
        ::close(number_);
    number_ = -1;
}

Descriptor openOwnFolder(const std::filesystem::path& folder) {
    Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!opened || ::fstat(opened.get(), &status) != 0 || status.st_uid != ::geteuid())
        return {};
    const bool isPrivate = (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    if (!isPrivate && ::fchmod(opened.get(), S_IRWXU) != 0)
        return {};
    return opened;
}

Descriptor listenIn(const Descriptor& folder) {
    Descriptor socket = makeSocket();
    if (!socket)
        return {};
    removeSocket(folder);
    // The mode of the socket's file is that of the socket when it is bound.
    if (::fchmod(socket.get(), S_IRUSR | S_IWUSR) != 0 || !withAddress(folder, socket, ::bind) ||
        ::fchmodat(folder.get(), socketName, S_IRUSR | S_IWUSR, 0) != 0 ||
        ::listen(socket.get(), waitingConnections) != 0)
        return {};
    return socket;
}

void removeSocket(const Descriptor& folder) {
    ::unlinkat(folder.get(), socketName, 0);
}

Reached connectIn(const Descriptor& folder, std::chrono::steady_clock::time_point deadline) {
    struct stat status {};
    if (::fstatat(folder.get(), socketName, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISSOCK(status.st_mode))
        return {};
    Descriptor socket = makeSocket();
    if (!socket)
        return {};
    while (!withAddress(folder, socket, ::connect)) {
        if (errno != EAGAIN || std::chrono::steady_clock::now() >= deadline)
            return {.connection = {}, .crowded = errno == EAGAIN};
        std::this_thread::sleep_for(pauseWhileFull); // there is nothing to be woken by
    }
    if (!isOwnPeer(socket))
        return {};
    return {.connection = std::move(socket)};
}

bool isOwnPeer(const Descriptor& connection) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

long sendNow(const Descriptor& connection, const char* bytes, std::size_t size) {
    ssize_t sent = 0;
    do {
        sent = ::send(connection.get(), bytes, size, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    return sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK) ? 0 : sent;
}

} // namespace hourwright::platform
