#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::platform {

/// The bytes of a message or a reply on the wire: "HWi1", a number (kind of the message, or outcome of the reply), the
/// length of the payload in four bytes, low byte first, and the payload.
struct InstanceFrame {
    std::uint8_t number = 0;
    std::string payload;

    friend bool operator==(const InstanceFrame&, const InstanceFrame&) = default;
};

/// Outcomes of replies.
inline constexpr std::uint8_t replyHandled = 0;
inline constexpr std::uint8_t replyNotUnderstood = 1;

/// The frame's bytes; nothing when the payload is longer than a frame may hold.
[[nodiscard]] std::optional<std::string> encodeFrame(std::uint8_t number, std::string_view payload);

/// Puts a frame together from pieces as they arrive.
class FrameReader {
public:
    /// Takes a piece. False when the bytes so far are no beginning of a frame or go on beyond its end; nothing more is
    /// taken then.
    [[nodiscard]] bool add(std::string_view bytes);
    /// The frame, once all of it has arrived.
    [[nodiscard]] std::optional<InstanceFrame> frame() const;

private:
    [[nodiscard]] std::size_t payloadSize() const;
    [[nodiscard]] bool isSound() const;

    std::string bytes_;
    bool bad_ = false;
};

} // namespace hourwright::platform
