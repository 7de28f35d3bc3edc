#include "platform/nettle/nettle_sha256.h"

#include <array>
#include <cstdint>
#include <nettle/sha2.h>

namespace hourwright::platform {

namespace {

class NettleSha256 final : public Digest {
public:
    NettleSha256() { sha256_init(&state_); }

    void add(std::span<const std::byte> bytes) override {
        sha256_update(&state_, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
    }

    [[nodiscard]] std::string finish() override {
        constexpr std::string_view digits = "0123456789abcdef";
        std::array<std::uint8_t, SHA256_DIGEST_SIZE> bytes{};
        sha256_digest(&state_, bytes.size(), bytes.data()); // begins anew as well
        std::string text;
        for (const std::uint8_t byte : bytes) {
            text.push_back(digits[byte >> 4]);
            text.push_back(digits[byte & 15]);
        }
        return text;
    }

private:
    sha256_ctx state_{};
};

} // namespace

std::unique_ptr<Digest> makeSha256() {
    return std::make_unique<NettleSha256>();
}

} // namespace hourwright::platform
