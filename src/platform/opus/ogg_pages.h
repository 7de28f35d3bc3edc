#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The container of voice recordings: packets in the pages of an Ogg stream.
namespace hourwright::platform {

using Bytes = std::vector<std::byte>;

/// Writes one stream. A position is the number of samples at 48 kHz up to the end of a packet.
class OggWriter {
public:
    /// Adds a packet of less than 255 * 255 bytes.
    void add(std::span<const std::byte> packet, std::uint64_t position);
    /// Ends the page; the last one of the stream is to be marked.
    void endPage(bool last = false);
    [[nodiscard]] bool pageIsFull() const { return lacing_.size() > 200 || body_.size() > 4000; }
    [[nodiscard]] Bytes take() { return std::move(out_); }

private:
    Bytes out_;
    Bytes body_;
    Bytes lacing_;
    std::uint64_t position_ = 0;
    std::uint32_t pages_ = 0;
};

/// The packets of a stream in their order and the position at its end. Reading stops at damaged bytes; the rest is
/// left out.
struct OggPackets {
    std::vector<Bytes> packets;
    std::uint64_t position = 0;
};
[[nodiscard]] OggPackets readOgg(std::span<const std::byte> stream);

} // namespace hourwright::platform
