#include "exchange/json_writer.h"

#include "platform/utf.h"

#include <array>
#include <charconv>
#include <cmath>

namespace hourwright::exchange {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

// The escape of a character that may not stand in a JSON string as it is; empty for all others.
std::string escapeOf(char c) {
    switch (c) {
    case '"': return "\\\"";
    case '\\': return "\\\\";
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
    }
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte != 0x7F)
        return {};
    return std::string("\\u00") + hexDigits[byte >> 4] + hexDigits[byte & 0xF];
}

template<typename Number>
void writeNumber(TextSink& out, Number number) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    out.write({digits.data(), end});
}

} // namespace

void JsonWriter::separate() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (hasElements_.empty())
        return;
    if (hasElements_.back())
        out_.write(",");
    hasElements_.back() = true;
    if (hasElements_.size() == 1 && arrayOutermost_)
        out_.write("\n");
}

void JsonWriter::open(char bracket) {
    separate();
    if (hasElements_.empty())
        arrayOutermost_ = bracket == '[';
    hasElements_.push_back(false);
    out_.write({&bracket, 1});
}

void JsonWriter::close(char bracket) {
    const bool breakLine = hasElements_.size() == 1 && arrayOutermost_ && hasElements_.back();
    hasElements_.pop_back();
    if (breakLine)
        out_.write("\n");
    out_.write({&bracket, 1});
}

JsonWriter& JsonWriter::beginObject() {
    open('{');
    return *this;
}

JsonWriter& JsonWriter::endObject() {
    close('}');
    return *this;
}

JsonWriter& JsonWriter::beginArray() {
    open('[');
    return *this;
}

JsonWriter& JsonWriter::endArray() {
    close(']');
    return *this;
}

JsonWriter& JsonWriter::key(std::string_view name) {
    separate();
    writeString(name);
    out_.write(":");
    afterKey_ = true;
    return *this;
}

JsonWriter& JsonWriter::value(std::u16string_view text) {
    return value(std::string_view(platform::printableUtf8(text)));
}

JsonWriter& JsonWriter::value(std::string_view text) {
    separate();
    writeString(text);
    return *this;
}

JsonWriter& JsonWriter::value(std::int64_t number) {
    separate();
    writeNumber(out_, number);
    return *this;
}

JsonWriter& JsonWriter::value(std::uint64_t number) {
    separate();
    writeNumber(out_, number);
    return *this;
}

JsonWriter& JsonWriter::value(double number) {
    if (!std::isfinite(number))
        return null();
    separate();
    writeNumber(out_, number);
    return *this;
}

JsonWriter& JsonWriter::value(bool truth) {
    separate();
    out_.write(truth ? "true" : "false");
    return *this;
}

JsonWriter& JsonWriter::null() {
    separate();
    out_.write("null");
    return *this;
}

void JsonWriter::writeString(std::string_view utf8) {
    out_.write("\"");
    std::size_t plain = 0;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const std::string escape = escapeOf(utf8[i]);
        if (escape.empty())
            continue;
        out_.write(utf8.substr(plain, i - plain));
        out_.write(escape);
        plain = i + 1;
    }
    out_.write(utf8.substr(plain));
    out_.write("\"");
}

} // namespace hourwright::exchange
