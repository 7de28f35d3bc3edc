#include "platform/packed_bytes.h"

#include <limits>

namespace hourwright::platform {

void PackedWriter::number(std::uint64_t value) {
    while (value >= 0x80) {
        bytes_.push_back(static_cast<std::byte>(value | 0x80));
        value >>= 7;
    }
    bytes_.push_back(static_cast<std::byte>(value));
}

void PackedWriter::text(std::string_view text) {
    number(text.size());
    bytes(std::as_bytes(std::span(text)));
}

void PackedWriter::bytes(std::span<const std::byte> bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
}

std::uint64_t PackedReader::number() {
    std::uint64_t value = 0;
    for (unsigned shift = 0; !failed_ && shift < 64 && !bytes_.empty(); shift += 7) {
        const auto byte = std::to_integer<std::uint64_t>(bytes_.front());
        bytes_ = bytes_.subspan(1);
        const std::uint64_t bits = byte & 0x7F;
        if (bits << shift >> shift != bits)
            break;
        value |= bits << shift;
        if (byte < 0x80 && (byte != 0 || shift == 0))
            return value;
        if (byte < 0x80)
            break;
    }
    failed_ = true;
    return 0;
}

bool PackedReader::number32(std::uint32_t& out) {
    const std::uint64_t value = number();
    out = static_cast<std::uint32_t>(value);
    return !failed_ && value <= std::numeric_limits<std::uint32_t>::max();
}

std::vector<std::byte> PackedReader::bytes(std::size_t count) {
    failed_ = failed_ || count > bytes_.size();
    if (failed_)
        return {};
    const auto taken = bytes_.first(count);
    bytes_ = bytes_.subspan(count);
    return {taken.begin(), taken.end()};
}

bool PackedReader::text(std::string& out) {
    const std::uint64_t size = number();
    if (failed_ || size > bytes_.size())
        return false;
    out.resize(size);
    for (char& c : out) {
        c = static_cast<char>(bytes_.front());
        bytes_ = bytes_.subspan(1);
    }
    return true;
}

} // namespace hourwright::platform
