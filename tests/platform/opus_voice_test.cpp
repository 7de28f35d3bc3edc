#include "platform/opus/opus_voice.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace hourwright::platform {
namespace {

// Something like a voice: a tone with overtones that swells and falls.
std::vector<std::int16_t> voiceLike(std::size_t seconds) {
    std::vector<std::int16_t> samples(seconds * voiceRate);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i) / voiceRate;
        const double swell = 0.5 + 0.5 * std::sin(2 * std::numbers::pi * 3 * t);
        double sum = 0;
        for (int k = 1; k <= 6; ++k)
            sum += std::sin(2 * std::numbers::pi * 140 * k * t) / k;
        samples[i] = static_cast<std::int16_t>(8000 * swell * sum);
    }
    return samples;
}

// How alike two recordings are, 1 being the same but for loudness.
double likeness(const std::vector<std::int16_t>& a, const std::vector<std::int16_t>& b) {
    double both = 0;
    double ofA = 0;
    double ofB = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        both += 1.0 * a[i] * b[i];
        ofA += 1.0 * a[i] * a[i];
        ofB += 1.0 * b[i] * b[i];
    }
    return both / std::sqrt(ofA * ofB);
}

TEST(OpusVoice, SoundsLikeWhatWasRecorded) {
    for (const std::size_t samples : {std::size_t{1}, std::size_t{960}, std::size_t{voiceRate * 3 + 17}}) {
        auto recorded = voiceLike(4);
        recorded.resize(samples);
        const auto played = decodeVoice(encodeVoice(recorded));
        EXPECT_EQ(played.size(), samples);
        if (samples > voiceRate) {
            EXPECT_GT(likeness(recorded, played), 0.75);
        }
    }
}

TEST(OpusVoice, AMinuteFitsIntoANote) {
    const auto bytes = encodeVoice(voiceLike(60)).size();
    EXPECT_LT(bytes, 60'000U);
    EXPECT_GT(bytes, 20'000U);
}

TEST(OpusVoice, IsAlwaysDecodedInTheSameWay) {
    const auto data = encodeVoice(voiceLike(2));
    EXPECT_EQ(decodeVoice(data), decodeVoice(data));
}

TEST(OpusVoice, NothingIsNoRecording) {
    EXPECT_TRUE(encodeVoice({}).empty());
    EXPECT_TRUE(decodeVoice({}).empty());
    EXPECT_TRUE(decodeVoice(std::vector<std::byte>(500, std::byte{'O'})).empty());
}

TEST(OpusVoice, DamagedBytesGiveAtMostWhatStandsBefore) {
    const auto whole = encodeVoice(voiceLike(8));
    const auto all = decodeVoice(whole).size();
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        auto data = whole;
        data.resize(random() % data.size() + 1);
        data[random() % data.size()] = static_cast<std::byte>(random());
        EXPECT_LE(decodeVoice(data).size(), all) << round;
    }
}

} // namespace
} // namespace hourwright::platform
