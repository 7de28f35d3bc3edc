#include "platform/copy_description.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>

namespace hourwright::platform {

namespace {

constexpr std::string_view firstLine = "Hourwright copy 1";
constexpr std::string_view recordsKey = "records";
constexpr std::string_view bytesKey = "bytes";
constexpr std::string_view settingsKept = "settings";
constexpr std::string_view recordsSource = "of-records";
constexpr std::string_view settingsSource = "of-settings";
constexpr std::size_t digestDigits = 64;

std::string padded(unsigned number, std::size_t width) {
    std::string digits = std::to_string(number);
    return digits.size() >= width ? digits : std::string(width - digits.size(), '0') + digits;
}

// Takes a number of so many digits (or more, for years) and what stands behind it off the text.
std::optional<std::uint16_t> takeNumber(std::string_view& text, std::size_t width, std::string_view behind) {
    std::uint16_t number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(parsed.ptr - text.data());
    if (parsed.ec != std::errc{} || length < width || !text.substr(length).starts_with(behind))
        return std::nullopt;
    text.remove_prefix(length + behind.size());
    return number;
}

std::optional<std::uint64_t> number(std::string_view text) {
    std::uint64_t value = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    return parsed.ec == std::errc{} && parsed.ptr == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

std::string_view takeLine(std::string_view& text) {
    const auto end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
}

// False for a line that is understood in its name but not in its value.
bool takeFact(StoreCopy& copy, std::string_view name, std::string_view value) {
    if (name == recordsSource)
        copy.source.records.text = value;
    else if (name == settingsSource)
        copy.source.settings.text = value;
    else if (name == settingsKept)
        copy.hasSettings = value == "yes";
    else if (name == recordsKey || name == bytesKey) {
        const auto count = number(value);
        (name == recordsKey ? copy.records : copy.bytes) = count.value_or(0);
        return count.has_value();
    }
    return true; // a later program may know more
}

} // namespace

std::optional<SystemTime> timeInCopyName(std::string_view name) {
    SystemTime time;
    struct Part {
        std::uint16_t SystemTime::*field;
        std::size_t width;
        std::string_view behind;
    };
    constexpr std::array parts = {Part{&SystemTime::year, 4, "-"},   Part{&SystemTime::month, 2, "-"},
                                  Part{&SystemTime::day, 2, "_"},    Part{&SystemTime::hour, 2, "-"},
                                  Part{&SystemTime::minute, 2, "-"}, Part{&SystemTime::second, 2, ""}};
    for (const Part& part : parts) {
        const auto value = takeNumber(name, part.width, part.behind);
        if (!value)
            return std::nullopt;
        time.*part.field = *value;
    }
    const bool ordinalFits = name.empty() || (name.starts_with('_') && number(name.substr(1)).value_or(0) >= 2);
    const auto instant = toFileTime(time);
    return ordinalFits && instant ? toSystemTime(*instant) : std::nullopt;
}

std::string copyNameAt(const SystemTime& time, unsigned ordinal) {
    return padded(time.year, 4) + '-' + padded(time.month, 2) + '-' + padded(time.day, 2) + '_' + padded(time.hour, 2) +
           '-' + padded(time.minute, 2) + '-' + padded(time.second, 2) +
           (ordinal > 1 ? '_' + std::to_string(ordinal) : std::string());
}

// By instants, since the fields of a time have the day of week before the day. Names of one second differ in length
// first: "…_9", "…_10".
bool isNewer(const StoreCopy& left, const StoreCopy& right) {
    return std::tuple(toFileTime(left.time), left.name.size(), std::string_view(left.name)) >
           std::tuple(toFileTime(right.time), right.name.size(), std::string_view(right.name));
}

std::string describeCopy(const StoreCopy& copy) {
    std::string text(firstLine);
    const auto add = [&text](std::string_view name, std::string_view value) {
        text.append("\n").append(name).append(" ").append(value);
    };
    add(recordsKey, std::to_string(copy.records));
    add(bytesKey, std::to_string(copy.bytes));
    add(settingsKept, copy.hasSettings ? "yes" : "no");
    add(recordsSource, copy.source.records.text);
    add(settingsSource, copy.source.settings.text);
    return text + '\n';
}

std::optional<StoreCopy> parseCopyDescription(std::string_view name, std::string_view text) {
    const auto time = timeInCopyName(name);
    if (!time || takeLine(text) != firstLine)
        return std::nullopt;
    StoreCopy copy{.name = std::string(name), .time = *time, .source = {}};
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const auto blank = line.find(' ');
        if (blank == std::string_view::npos || !takeFact(copy, line.substr(0, blank), line.substr(blank + 1)))
            return std::nullopt;
    }
    return copy;
}

std::string digestLines(const FileDigests& digests) {
    std::string text;
    for (const auto& [file, digest] : digests)
        text.append(digest).append("  ").append(file).append("\n");
    return text;
}

std::optional<FileDigests> parseDigestLines(std::string_view text) {
    FileDigests digests;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.size() <= digestDigits + 2 || line.substr(digestDigits, 2) != "  " ||
            line.find('/') != std::string_view::npos || !std::ranges::all_of(line.substr(0, digestDigits), isHexDigit))
            return std::nullopt;
        digests.emplace(line.substr(digestDigits + 2), line.substr(0, digestDigits));
    }
    return digests;
}

} // namespace hourwright::platform
