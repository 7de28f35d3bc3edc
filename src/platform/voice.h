#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform {

/// A compressed recording with its media type and length.
struct VoiceRecording {
    std::string format;
    std::uint32_t milliseconds = 0;
    std::vector<std::byte> data;

    friend bool operator==(const VoiceRecording&, const VoiceRecording&) = default;
};

/// What a second of recording takes at most, so that one knows how much fits.
inline constexpr std::size_t voiceBytesPerSecond = 1000;

/// Records the user's voice from the device's microphone.
class VoiceRecorder {
public:
    virtual ~VoiceRecorder() = default;

    /// False without a microphone.
    [[nodiscard]] virtual bool available() const = 0;
    /// False when the microphone could not be had.
    [[nodiscard]] virtual bool start() = 0;
    /// How much has been recorded since the start.
    [[nodiscard]] virtual std::uint32_t milliseconds() const = 0;
    /// Ends the recording and gives it; nothing when there is none.
    [[nodiscard]] virtual std::optional<VoiceRecording> stop() = 0;
};

/// Plays recordings, one at a time.
class VoicePlayer {
public:
    virtual ~VoicePlayer() = default;

    /// Starts to play, in the place of what was playing. False when the format is unknown, the bytes are damaged or
    /// there is nothing to hear them with.
    [[nodiscard]] virtual bool play(std::string_view format, std::span<const std::byte> data) = 0;
    virtual void stop() = 0;
    [[nodiscard]] virtual bool playing() const = 0;
};

/// The sound of a device.
struct VoiceDevices {
    std::unique_ptr<VoiceRecorder> recorder;
    std::unique_ptr<VoicePlayer> player;
};

} // namespace hourwright::platform
