#include "platform/opus/opus_voice.h"

#include "platform/opus/ogg_pages.h"

#include <algorithm>
#include <array>
#include <memory>
#include <opus/opus.h>
#include <string_view>

namespace hourwright::platform {

namespace {

constexpr std::int32_t bitRate = 6'500;
constexpr std::size_t frame = voiceRate * 60 / 1000; // long frames have less overhead
constexpr std::uint64_t clock = 48'000 / voiceRate;  // positions count at 48 kHz
constexpr std::string_view headSign = "OpusHead";
constexpr std::size_t headSize = 19;

struct Closer {
    void operator()(OpusEncoder* encoder) const { opus_encoder_destroy(encoder); }
    void operator()(OpusDecoder* decoder) const { opus_decoder_destroy(decoder); }
};
using Encoder = std::unique_ptr<OpusEncoder, Closer>;
using Decoder = std::unique_ptr<OpusDecoder, Closer>;

Encoder makeEncoder() {
    int error = OPUS_OK;
    Encoder encoder(opus_encoder_create(static_cast<opus_int32>(voiceRate), 1, OPUS_APPLICATION_VOIP, &error));
    if (encoder == nullptr)
        return nullptr;
    opus_encoder_ctl(encoder.get(), OPUS_SET_BITRATE_REQUEST, bitRate);
    opus_encoder_ctl(encoder.get(), OPUS_SET_COMPLEXITY_REQUEST, 10);
    opus_encoder_ctl(encoder.get(), OPUS_SET_SIGNAL_REQUEST, OPUS_SIGNAL_VOICE);
    return encoder;
}

// The samples that a player leaves out before the first one.
std::uint16_t lookahead(OpusEncoder& encoder) {
    opus_int32 samples = 0;
    opus_encoder_ctl(&encoder, OPUS_GET_LOOKAHEAD_REQUEST, &samples);
    return static_cast<std::uint16_t>(samples);
}

Bytes bytesOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

// Version 1, one channel, samples to leave out, the rate of the recording, no gain, the plain mapping.
Bytes head(std::uint16_t skip) {
    Bytes packet = bytesOf(headSign);
    for (const unsigned byte :
         {1U, 1U, skip % 256U, skip / 256U, voiceRate % 256U, voiceRate / 256U, 0U, 0U, 0U, 0U, 0U})
        packet.push_back(static_cast<std::byte>(byte));
    return packet;
}

// No maker, no comments.
Bytes tags() {
    Bytes packet = bytesOf("OpusTags");
    packet.resize(packet.size() + 8);
    return packet;
}

bool isHead(const Bytes& packet) {
    return packet.size() >= headSize && std::ranges::equal(std::span(packet).first(headSign.size()), bytesOf(headSign));
}

const unsigned char* raw(const Bytes& bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

} // namespace

std::vector<std::byte> encodeVoice(std::span<const std::int16_t> samples) {
    const Encoder encoder = makeEncoder();
    if (samples.empty() || encoder == nullptr)
        return {};
    const std::size_t skip = lookahead(*encoder);
    const std::uint64_t end = clock * (samples.size() + skip);
    OggWriter ogg;
    ogg.add(head(static_cast<std::uint16_t>(clock * skip)), 0);
    ogg.endPage();
    ogg.add(tags(), 0);
    ogg.endPage();
    std::array<std::int16_t, frame> block{};
    std::array<unsigned char, 1275> packet{};
    for (std::size_t at = 0; at < samples.size() + skip; at += frame) {
        block.fill(0);
        if (at < samples.size())
            std::ranges::copy(samples.subspan(at, std::min(frame, samples.size() - at)), block.begin());
        const int size = opus_encode(encoder.get(), block.data(), static_cast<int>(frame), packet.data(),
                                     static_cast<opus_int32>(packet.size()));
        if (size < 0)
            return {};
        ogg.add(std::as_bytes(std::span(packet).first(static_cast<std::size_t>(size))),
                std::min(end, clock * (at + frame)));
        const bool last = at + frame >= samples.size() + skip;
        if (last || ogg.pageIsFull())
            ogg.endPage(last);
    }
    return ogg.take();
}

std::vector<std::int16_t> decodeVoice(std::span<const std::byte> data) {
    const OggPackets ogg = readOgg(data);
    if (ogg.packets.size() < 3 || !isHead(ogg.packets[0]))
        return {};
    int error = OPUS_OK;
    const Decoder decoder(opus_decoder_create(static_cast<opus_int32>(voiceRate), 1, &error));
    if (decoder == nullptr)
        return {};
    std::vector<std::int16_t> samples;
    std::array<std::int16_t, voiceRate * 120 / 1000> block{};
    for (std::size_t i = 2; i < ogg.packets.size() && samples.size() < voiceRate * maxVoiceSeconds; ++i) {
        const Bytes& packet = ogg.packets[i];
        const int count = opus_decode(decoder.get(), raw(packet), static_cast<opus_int32>(packet.size()), block.data(),
                                      static_cast<int>(block.size()), 0);
        if (count < 0)
            break;
        samples.insert(samples.end(), block.begin(), block.begin() + count);
    }
    const auto number = [&](std::size_t at) { return std::to_integer<std::size_t>(ogg.packets[0][at]); };
    const std::size_t skip = std::min((number(10) + 256 * number(11)) / clock, samples.size());
    samples.resize(std::min<std::uint64_t>(samples.size(), ogg.position / clock));
    samples.erase(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(std::min(skip, samples.size())));
    return samples;
}

} // namespace hourwright::platform
