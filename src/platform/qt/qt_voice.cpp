#include "platform/qt/qt_voice.h"

#include "platform/opus/opus_voice.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioOutput>
#include <QAudioSink>
#include <QAudioSource>
#include <QBuffer>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <cstring>

namespace hourwright::platform {

namespace {

QAudioFormat voiceFormat() {
    QAudioFormat format;
    format.setSampleRate(static_cast<int>(voiceRate));
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Int16);
    return format;
}

std::vector<std::int16_t> samplesOf(const QByteArray& bytes) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(bytes.size()) / sizeof(std::int16_t));
    if (!samples.empty())
        std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(std::int16_t));
    return samples;
}

class QtVoiceRecorder : public VoiceRecorder {
public:
    [[nodiscard]] bool available() const override { return !QMediaDevices::defaultAudioInput().isNull(); }

    bool start() override {
        if (!available())
            return false;
        bytes_.clear();
        source_ = std::make_unique<QAudioSource>(QMediaDevices::defaultAudioInput(), voiceFormat());
        device_ = source_->start();
        if (device_ == nullptr || source_->error() != QAudio::NoError) {
            source_.reset();
            return false;
        }
        QObject::connect(device_, &QIODevice::readyRead, source_.get(), [this] { bytes_ += device_->readAll(); });
        return true;
    }

    [[nodiscard]] std::uint32_t milliseconds() const override {
        return static_cast<std::uint32_t>(bytes_.size() / 2 * 1000 / voiceRate);
    }

    std::optional<VoiceRecording> stop() override {
        if (source_ == nullptr)
            return std::nullopt;
        bytes_ += device_->readAll();
        source_->stop();
        source_.reset();
        VoiceRecording recording{.format = opusFormat, .milliseconds = milliseconds(), .data = {}};
        recording.data = encodeVoice(samplesOf(bytes_));
        if (recording.data.empty())
            return std::nullopt;
        return recording;
    }

private:
    std::unique_ptr<QAudioSource> source_;
    QIODevice* device_ = nullptr; // of the source
    QByteArray bytes_;
};

// The program's own recordings are decoded here; those of other kinds are left to the desktop's media player.
class QtVoicePlayer : public VoicePlayer {
public:
    ~QtVoicePlayer() override { stop(); }

    bool play(std::string_view /*format*/, std::span<const std::byte> data) override {
        stop();
        const auto output = QMediaDevices::defaultAudioOutput();
        if (output.isNull())
            return false;
        const auto samples = decodeVoice(data);
        const bool own = !samples.empty();
        bytes_ = own ? QByteArray(reinterpret_cast<const char*>(samples.data()),
                                  static_cast<qsizetype>(samples.size() * sizeof(std::int16_t)))
                     : QByteArray(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()));
        buffer_ = std::make_unique<QBuffer>(&bytes_);
        buffer_->open(QIODevice::ReadOnly);
        return own ? playSamples(output) : playMedia(output);
    }

    void stop() override {
        sink_.reset();
        player_.reset();
        audio_.reset();
        buffer_.reset();
    }

    [[nodiscard]] bool playing() const override {
        if (sink_ != nullptr)
            return sink_->state() == QAudio::ActiveState;
        return player_ != nullptr && player_->playbackState() == QMediaPlayer::PlayingState;
    }

private:
    bool playSamples(const QAudioDevice& output) {
        sink_ = std::make_unique<QAudioSink>(output, voiceFormat());
        sink_->start(buffer_.get());
        return sink_->error() == QAudio::NoError;
    }

    bool playMedia(const QAudioDevice& output) {
        audio_ = std::make_unique<QAudioOutput>(output);
        player_ = std::make_unique<QMediaPlayer>();
        player_->setAudioOutput(audio_.get());
        player_->setSourceDevice(buffer_.get());
        player_->play();
        return player_->error() == QMediaPlayer::NoError;
    }

    QByteArray bytes_;
    std::unique_ptr<QBuffer> buffer_;
    std::unique_ptr<QAudioSink> sink_;
    std::unique_ptr<QAudioOutput> audio_;
    std::unique_ptr<QMediaPlayer> player_;
};

} // namespace

VoiceDevices makeQtVoiceDevices() {
    return {.recorder = std::make_unique<QtVoiceRecorder>(), .player = std::make_unique<QtVoicePlayer>()};
}

} // namespace hourwright::platform
