// Reads any bytes as what another program of the same user might send to the running window: as a frame, and as what
// frames carry. How a frame was cut into pieces must not matter, and whatever is understood must be what the sender's
// side makes of it.

#include "app/start_options.h"
#include "exchange/timer_messages.h"
#include "fuzz/input.h"
#include "fuzz/require.h"
#include "platform/instance_channel.h"
#include "platform/instance_frame.h"

namespace hourwright::fuzz {

using namespace platform;

namespace {

using Frame = std::optional<InstanceFrame>;

struct Heard {
    bool sound = true;
    Frame frame;
};

Heard hear(std::string_view bytes, std::size_t pieceSize) {
    FrameReader reader;
    Heard heard;
    for (; heard.sound && !bytes.empty(); bytes.remove_prefix(std::min(pieceSize, bytes.size())))
        heard.sound = reader.add(bytes.substr(0, pieceSize));
    heard.frame = reader.frame();
    return heard;
}

Frame readFrame(std::string_view bytes, std::size_t pieceSize) {
    const Heard whole = hear(bytes, bytes.size() + 1);
    const Heard pieces = hear(bytes, pieceSize);
    require(whole.sound == pieces.sound && whole.frame == pieces.frame);
    require(whole.sound || !whole.frame);
    if (whole.frame)
        require(encodeFrame(whole.frame->number, whole.frame->payload) == bytes);
    return whole.frame;
}

// The words of a line come back through one, but for the bytes that are no text.
void tryWords(std::u16string_view line) {
    const auto words = app::splitLine(line);
    const auto again = app::splitLine(app::joinLine(words));
    require(again.size() == words.size());
    for (std::size_t i = 0; i < words.size(); ++i)
        require(toUtf16(again[i]) == toUtf16(words[i]));
}

void tryLine(std::u16string_view line) {
    tryWords(line);
    app::StartOptions options = app::parseHandOverLine(line);
    if (!options.error.empty())
        return;
    const app::StartOptions again = app::parseHandOverLine(app::handOverLine(options, "/home/someone"));
    require(again.error.empty());
    require(again.newEntry == options.newEntry && again.view == options.view && again.date == options.date);
    require(again.file.empty() == options.file.empty() && (again.file.empty() || again.file.is_absolute()));
    if (again.date)
        require(toFileTime(*again.date).has_value());
}

void tryCommandLine(const std::string& payload) {
    const InstanceMessage message{InstanceMessageKind::handOver, payload};
    const auto line = handedOverLine(message);
    if (!line)
        return;
    require(handOverMessage(*line) == message);
    tryLine(*line);
}

template<typename Message>
void tryPacked(const std::optional<Message>& message, Bytes payload) {
    if (message)
        require(std::ranges::equal(exchange::packed(*message), payload));
}

void tryPayload(std::uint8_t number, const std::string& payload) {
    const Bytes bytes = std::as_bytes(std::span(payload));
    if (number == static_cast<std::uint8_t>(InstanceMessageKind::handOver)) {
        tryCommandLine(payload);
    } else if (number == static_cast<std::uint8_t>(InstanceMessageKind::timerCommand)) {
        tryPacked(exchange::unpackTimerRequest(bytes), bytes);
        tryPacked(exchange::unpackTimerReply(bytes), bytes);
    }
}

} // namespace

void handOver(Bytes bytes) {
    Input input(bytes);
    const std::uint8_t mode = input.number();
    const std::string rest(input.restChars());
    switch (mode % 8) {
    case 0: tryLine(toUtf16(rest)); break;
    case 1: tryPayload(1, rest); break;
    case 4: tryPayload(4, rest); break;
    default:
        if (const Frame frame = readFrame(rest, 1 + mode / 8U))
            tryPayload(frame->number, frame->payload);
    }
}

} // namespace hourwright::fuzz
