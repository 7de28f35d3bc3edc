#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::platform {

/// What one program may tell the running copy of the window. The numbers are those on the wire.
enum class InstanceMessageKind : std::uint8_t {
    handOver = 1,    ///< the command line of a second start; see `handOverMessage`
    comeForward = 2, ///< payload: the desktop's activation token as UTF-8, or empty
    dataChanged = 3, ///< records were changed; no payload
    timerCommand = 4 ///< payload and reply are agreed between the timers and their callers
};

struct InstanceMessage {
    InstanceMessageKind kind = InstanceMessageKind::comeForward;
    std::string payload; ///< bytes

    friend bool operator==(const InstanceMessage&, const InstanceMessage&) = default;
};

/// The longest payload of a message or a reply, in bytes; with its header a frame stays within 64 KiB.
inline constexpr std::size_t maxInstancePayload = std::size_t{64} * 1024 - 16;

/// A command line as a message: UTF-16 with its terminating zero, (characters + 1) * 2 bytes, low byte first.
[[nodiscard]] InstanceMessage handOverMessage(std::u16string_view commandLine);

/// The command line that such a message carries; nothing when its bytes are no such text.
[[nodiscard]] std::optional<std::u16string> handedOverLine(const InstanceMessage& message);

/// Answers a message with the reply's bytes (at most `maxInstancePayload`); nothing says that it is not understood. It
/// runs inside `InstanceServer::service` and must neither take long nor wait for the user: the sender is waiting.
using InstanceHandler = std::function<std::optional<std::string>(const InstanceMessage&)>;

/// The running copy's end of the channel. It belongs to one thread and never blocks it. As long as it lives, nobody
/// else can be the running copy; messages that come before the first `service` wait.
class InstanceServer {
public:
    virtual ~InstanceServer() = default;

    virtual void setHandler(InstanceHandler handler) = 0;
    /// A file descriptor that is readable whenever `service` has something to do.
    [[nodiscard]] virtual int descriptor() const = 0;
    /// Takes in what has arrived, calls the handler for each complete message, sends replies.
    virtual void service() = 0;
};

/// Who is the running copy.
enum class Claim : std::uint8_t {
    first,      ///< this program, from now on
    otherRuns,  ///< another one
    unavailable ///< it cannot be found out: the folder cannot be used
};

struct ClaimedInstance {
    Claim claim = Claim::unavailable;
    std::unique_ptr<InstanceServer> server; ///< when first
};

enum class Delivery : std::uint8_t {
    nobody,     ///< no copy runs, or none that can be trusted
    answered,   ///< the reply is there
    refused,    ///< the running copy does not understand the message, or it is too long
    unanswered, ///< no answer came in time; unless the copy had no ear for it at all, it may still be handled later
};

struct InstanceReply {
    Delivery delivery = Delivery::nobody;
    std::string payload; ///< when answered
};

/// The way to the one running copy of the window among the programs of one user and home. Only programs of the same
/// user are listened to and talked to.
class InstanceChannel {
public:
    virtual ~InstanceChannel() = default;

    /// Tries to become the running copy; never waits.
    [[nodiscard]] virtual ClaimedInstance claim() = 0;

    /// Sends a message and waits for the reply, no longer than the patience in all; with a patience of zero the message
    /// is sent without waiting for anything. Where no copy runs this costs one look-up of a file.
    virtual InstanceReply send(const InstanceMessage& message, std::chrono::milliseconds patience) = 0;
};

} // namespace hourwright::platform
