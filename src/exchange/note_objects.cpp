#include "exchange/note_objects.h"

#include "exchange/rtf_scan.h"
#include "platform/packed_bytes.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace hourwright::exchange {

using platform::PackedReader;
using platform::PackedWriter;

namespace {

constexpr std::int32_t version = 1;

std::uint64_t zigzag(std::int64_t value) {
    return static_cast<std::uint64_t>(value) << 1 ^ static_cast<std::uint64_t>(value >> 63);
}

std::int64_t unzigzag(std::uint64_t value) {
    return static_cast<std::int64_t>(value >> 1 ^ (~(value & 1) + 1));
}

void appendHex(std::string& out, std::span<const std::byte> bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::size_t bytesInLine = 64;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i % bytesInLine == 0)
            out += "\r\n";
        const auto byte = std::to_integer<unsigned>(bytes[i]);
        out.push_back(digits[byte >> 4]);
        out.push_back(digits[byte & 15]);
    }
}

void appendNumber(std::string& out, std::string_view word, std::int32_t number) {
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    out += word;
    out.append(digits.data(), end);
}

void packPoints(PackedWriter& out, const std::vector<InkPoint>& points) {
    std::int64_t x = 0;
    std::int64_t y = 0;
    for (const InkPoint& point : points) {
        out.number(zigzag(point.x - x));
        out.number(zigzag(point.y - y));
        out.number(point.pressure);
        x = point.x;
        y = point.y;
    }
}

std::vector<std::byte> packInk(const InkDrawing& drawing) {
    PackedWriter out;
    out.number(drawing.strokes.size());
    for (const InkStroke& stroke : drawing.strokes) {
        out.number(stroke.colour);
        out.number(stroke.width);
        out.number(stroke.points.size());
        packPoints(out, stroke.points);
    }
    return out.take();
}

// Moves a coordinate by a step; the sum of two 33-bit values cannot overflow, a wild step is refused before.
bool move(std::int32_t& coordinate, std::uint64_t step) {
    const std::int64_t by = unzigzag(step);
    constexpr std::int64_t most = std::int64_t{1} << 32;
    if (by < -most || by > most)
        return false;
    const std::int64_t sum = coordinate + by;
    coordinate = static_cast<std::int32_t>(sum);
    return sum == coordinate;
}

bool unpackPoints(PackedReader& in, std::vector<InkPoint>& points) {
    constexpr std::size_t leastBytes = 3;
    const std::uint64_t count = in.number();
    if (count > in.left() / leastBytes)
        return false;
    points.reserve(count);
    InkPoint point;
    for (std::uint64_t i = 0; i < count; ++i) {
        if (!move(point.x, in.number()) || !move(point.y, in.number()))
            return false;
        const std::uint64_t pressure = in.number();
        if (pressure > 0xFFFF)
            return false;
        point.pressure = static_cast<std::uint16_t>(pressure);
        points.push_back(point);
    }
    return true;
}

std::optional<InkDrawing> unpackInk(std::span<const std::byte> bytes) {
    constexpr std::size_t leastBytes = 3;
    PackedReader in(bytes);
    InkDrawing drawing;
    const std::uint64_t count = in.number();
    if (count > in.left() / leastBytes)
        return std::nullopt;
    drawing.strokes.resize(count);
    for (InkStroke& stroke : drawing.strokes) {
        if (!in.number32(stroke.colour) || !in.number32(stroke.width) || !unpackPoints(in, stroke.points))
            return std::nullopt;
    }
    if (!in.finished())
        return std::nullopt;
    return drawing;
}

void appendPictureGroup(std::string& out, const InkPicture& picture) {
    out += "{\\pict\\pngblip";
    appendNumber(out, "\\picw", picture.pixelWidth);
    appendNumber(out, "\\pich", picture.pixelHeight);
    appendNumber(out, "\\picwgoal", picture.width);
    appendNumber(out, "\\pichgoal", picture.height);
    appendHex(out, picture.png);
    out.push_back('}');
}

} // namespace

std::optional<InkGroup> readInkGroup(std::string_view group) {
    const auto parsed = parseRtfHexGroup(group);
    if (!parsed || parsed->words.empty() || parsed->words.size() > 2 || parsed->words[0].number != version)
        return std::nullopt;
    const bool pictureFollows = parsed->words.size() == 2;
    if (pictureFollows && parsed->words[1].name != "hwpict")
        return std::nullopt;
    auto drawing = unpackInk(parsed->data);
    if (!drawing)
        return std::nullopt;
    return InkGroup{std::move(*drawing), pictureFollows};
}

std::optional<InkPicture> readPictureGroup(std::string_view group) {
    constexpr std::array<std::string_view, 6> names = {"pict", "pngblip", "picw", "pich", "picwgoal", "pichgoal"};
    auto parsed = parseRtfHexGroup(group);
    if (!parsed || !std::ranges::equal(parsed->words, names, {}, &RtfWord::name))
        return std::nullopt;
    const auto number = [&](std::size_t word) { return parsed->words[word].number.value_or(0); };
    return InkPicture{std::move(parsed->data), number(2), number(3), number(4), number(5)};
}

std::optional<VoiceClip> readVoiceGroup(std::string_view group) {
    const auto parsed = parseRtfHexGroup(group);
    if (!parsed || parsed->words.size() != 1 || parsed->words[0].number != version)
        return std::nullopt;
    PackedReader in(parsed->data);
    VoiceClip clip;
    if (!in.number32(clip.milliseconds) || !in.text(clip.format))
        return std::nullopt;
    const auto data = in.rest();
    clip.data.assign(data.begin(), data.end());
    return clip;
}

void appendInkGroup(std::string& out, const InkDrawing& drawing) {
    appendNumber(out, "{\\*\\hwink", version);
    if (drawing.picture)
        out += "\\hwpict";
    appendHex(out, packInk(drawing));
    out.push_back('}');
    if (drawing.picture)
        appendPictureGroup(out, *drawing.picture);
}

void appendVoiceGroup(std::string& out, const VoiceClip& clip) {
    PackedWriter packed;
    packed.number(clip.milliseconds);
    packed.text(clip.format);
    packed.bytes(clip.data);
    appendNumber(out, "{\\*\\hwvoice", version);
    appendHex(out, packed.take());
    out.push_back('}');
}

std::size_t packedInkSize(const InkDrawing& drawing) {
    return packInk(drawing).size();
}

} // namespace hourwright::exchange
