#pragma once

#include <chrono>
#include <filesystem>
#include <utility>

namespace hourwright::platform {

/// A file descriptor that is closed at the end; negative for none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }

    [[nodiscard]] int get() const { return number_; }
    [[nodiscard]] explicit operator bool() const { return number_ >= 0; }
    void reset();

private:
    int number_ = -1;
};

/// Opens a folder that belongs to this user and that nobody else can enter; closed to others first when it is not.
[[nodiscard]] Descriptor openOwnFolder(const std::filesystem::path& folder);

/// A socket that listens in the folder, in place of what had its name; mode 0600.
[[nodiscard]] Descriptor listenIn(const Descriptor& folder);
void removeSocket(const Descriptor& folder);

/// The way to a listener: a connection, or why there is none.
struct Reached {
    Descriptor connection;
    bool crowded = false; ///< somebody listens, but too many waited already
};

/// A connection to the folder's socket when a program of this user listens there. Nothing else is ever sent to. Where
/// too many wait, it waits for room until the deadline.
[[nodiscard]] Reached connectIn(const Descriptor& folder, std::chrono::steady_clock::time_point deadline);

/// True when the other end of a connection is a program of this user.
[[nodiscard]] bool isOwnPeer(const Descriptor& connection);

/// Writes what goes without waiting: the number of bytes, 0 when none go now, -1 on failure.
[[nodiscard]] long sendNow(const Descriptor& connection, const char* bytes, std::size_t size);

} // namespace hourwright::platform
