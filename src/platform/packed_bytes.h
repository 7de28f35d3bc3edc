#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform {

/// Packs numbers and bytes. A number takes seven bits a byte, the lowest first, with the high bit set in all but its
/// last byte; a text its length as a number and then its bytes.
class PackedWriter {
public:
    void number(std::uint64_t value);
    void text(std::string_view text);
    void bytes(std::span<const std::byte> bytes);
    [[nodiscard]] std::vector<std::byte> take() { return std::move(bytes_); }

private:
    std::vector<std::byte> bytes_;
};

/// Unpacks what PackedWriter packed. After bytes that it does not write (a number cut off, over 64 bits or longer than
/// needed) it has failed: numbers are 0 and the Boolean results false.
class PackedReader {
public:
    explicit PackedReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    [[nodiscard]] std::uint64_t number();
    /// False also for a number of more than 32 bits.
    [[nodiscard]] bool number32(std::uint32_t& out);
    [[nodiscard]] bool text(std::string& out);
    /// So many bytes; none, and it has failed, when fewer are left.
    [[nodiscard]] std::vector<std::byte> bytes(std::size_t count);
    /// What is left.
    [[nodiscard]] std::span<const std::byte> rest() const { return bytes_; }
    [[nodiscard]] std::size_t left() const { return bytes_.size(); }
    /// True when nothing failed and nothing is left.
    [[nodiscard]] bool finished() const { return !failed_ && bytes_.empty(); }

private:
    std::span<const std::byte> bytes_;
    bool failed_ = false;
};

} // namespace hourwright::platform
