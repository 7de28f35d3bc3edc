#include "platform/opus/ogg_pages.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace hourwright::platform {

namespace {

constexpr std::size_t headerSize = 27;
constexpr std::size_t flagsAt = 5;
constexpr std::size_t positionAt = 6;
constexpr std::size_t checksumAt = 22;
constexpr std::size_t lacingCountAt = 26;
constexpr std::byte firstPage{2};
constexpr std::byte lastPage{4};

constexpr auto checksumTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t value = i << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = (value << 1) ^ ((value & 0x80000000U) != 0 ? 0x04C11DB7U : 0U);
        table[i] = value;
    }
    return table;
}();

// The checksum of a page, its own four bytes taken as zero.
std::uint32_t checksumOf(std::span<const std::byte> page) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < page.size(); ++i) {
        const bool own = i >= checksumAt && i < checksumAt + 4;
        const std::uint32_t byte = own ? 0 : std::to_integer<std::uint32_t>(page[i]);
        sum = (sum << 8) ^ checksumTable[((sum >> 24) ^ byte) & 0xFF];
    }
    return sum;
}

void put(std::span<std::byte> at, std::uint64_t value) {
    for (std::byte& byte : at) {
        byte = static_cast<std::byte>(value & 0xFF);
        value >>= 8;
    }
}

std::uint64_t number(std::span<const std::byte> at) {
    std::uint64_t value = 0;
    for (std::size_t i = at.size(); i > 0; --i)
        value = (value << 8) | std::to_integer<std::uint64_t>(at[i - 1]);
    return value;
}

bool isPage(std::span<const std::byte> bytes) {
    constexpr std::string_view sign("OggS\0", 5);
    return bytes.size() >= headerSize && std::ranges::equal(bytes.first(sign.size()), std::as_bytes(std::span(sign)));
}

} // namespace

void OggWriter::add(std::span<const std::byte> packet, std::uint64_t position) {
    lacing_.insert(lacing_.end(), packet.size() / 255, std::byte{255});
    lacing_.push_back(static_cast<std::byte>(packet.size() % 255));
    body_.insert(body_.end(), packet.begin(), packet.end());
    position_ = position;
}

void OggWriter::endPage(bool last) {
    constexpr std::string_view sign = "OggS";
    constexpr std::uint32_t stream = 1;
    Bytes page(headerSize);
    std::ranges::copy(std::as_bytes(std::span(sign)), page.begin());
    page[flagsAt] = (pages_ == 0 ? firstPage : std::byte{0}) | (last ? lastPage : std::byte{0});
    const std::span header(page);
    put(header.subspan(positionAt, 8), position_);
    put(header.subspan(14, 4), stream);
    put(header.subspan(18, 4), pages_++);
    page[lacingCountAt] = static_cast<std::byte>(lacing_.size());
    page.insert(page.end(), lacing_.begin(), lacing_.end());
    page.insert(page.end(), body_.begin(), body_.end());
    put(std::span(page).subspan(checksumAt, 4), checksumOf(page));
    out_.insert(out_.end(), page.begin(), page.end());
    lacing_.clear();
    body_.clear();
}

OggPackets readOgg(std::span<const std::byte> stream) {
    OggPackets result;
    Bytes packet;
    while (isPage(stream)) {
        const auto count = std::to_integer<std::size_t>(stream[lacingCountAt]);
        if (stream.size() < headerSize + count)
            break;
        const auto lacing = stream.subspan(headerSize, count);
        std::size_t bodySize = 0;
        for (const std::byte size : lacing)
            bodySize += std::to_integer<std::size_t>(size);
        const std::size_t size = headerSize + count + bodySize;
        if (stream.size() < size || number(stream.subspan(checksumAt, 4)) != checksumOf(stream.first(size)))
            break;
        auto body = stream.subspan(headerSize + count, bodySize);
        for (const std::byte part : lacing) {
            const auto length = std::to_integer<std::size_t>(part);
            packet.insert(packet.end(), body.begin(), body.begin() + static_cast<std::ptrdiff_t>(length));
            body = body.subspan(length);
            if (length < 255)
                result.packets.push_back(std::exchange(packet, {}));
        }
        result.position = number(stream.subspan(positionAt, 8));
        stream = stream.subspan(size);
    }
    return result;
}

} // namespace hourwright::platform
