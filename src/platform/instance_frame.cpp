#include "platform/instance_frame.h"

#include "platform/instance_channel.h"

namespace hourwright::platform {

namespace {

constexpr std::string_view magic = "HWi1";
constexpr std::size_t numberAt = magic.size();
constexpr std::size_t lengthAt = numberAt + 1;
constexpr std::size_t headerSize = lengthAt + 4;

} // namespace

std::optional<std::string> encodeFrame(std::uint8_t number, std::string_view payload) {
    if (payload.size() > maxInstancePayload)
        return std::nullopt;
    std::string bytes(magic);
    bytes.push_back(static_cast<char>(number));
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<char>(payload.size() >> shift & 0xFF));
    bytes.append(payload);
    return bytes;
}

bool FrameReader::add(std::string_view bytes) {
    if (!bad_)
        bytes_.append(bytes);
    bad_ = bad_ || !isSound();
    if (bad_)
        bytes_.clear();
    return !bad_;
}

bool FrameReader::isSound() const {
    const std::string_view begin = std::string_view(bytes_).substr(0, magic.size());
    if (!magic.starts_with(begin))
        return false;
    if (bytes_.size() < headerSize)
        return true;
    return payloadSize() <= maxInstancePayload && bytes_.size() <= headerSize + payloadSize();
}

std::size_t FrameReader::payloadSize() const {
    std::size_t size = 0;
    for (std::size_t i = 0; i < 4; ++i)
        size |= std::size_t{static_cast<unsigned char>(bytes_[lengthAt + i])} << (8 * i);
    return size;
}

std::optional<InstanceFrame> FrameReader::frame() const {
    if (bad_ || bytes_.size() < headerSize || bytes_.size() < headerSize + payloadSize())
        return std::nullopt;
    return InstanceFrame{.number = static_cast<std::uint8_t>(bytes_[numberAt]), .payload = bytes_.substr(headerSize)};
}

} // namespace hourwright::platform
