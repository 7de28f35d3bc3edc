#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Voice as Opus in Ogg, small enough that more than a minute of it fits into a note.
namespace hourwright::platform {

inline constexpr const char* opusFormat = "audio/ogg";

/// Samples a second; one channel, 16 bits.
inline constexpr std::uint32_t voiceRate = 16'000;

/// Compresses samples. Empty when there are none.
[[nodiscard]] std::vector<std::byte> encodeVoice(std::span<const std::int16_t> samples);

/// The samples of a recording, of other programs too. Empty for bytes that are none; damaged ones give what stands
/// before the damage. At most `maxVoiceSeconds`.
[[nodiscard]] std::vector<std::int16_t> decodeVoice(std::span<const std::byte> data);

inline constexpr std::uint32_t maxVoiceSeconds = 1800;

} // namespace hourwright::platform
