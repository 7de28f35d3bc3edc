#pragma once

#include "exchange/text_sink.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

/// Writes one JSON document piece by piece, so that a list of any length needs no memory of its own. Elements of the
/// outermost array stand on lines of their own. Calls must nest properly; commas and quotes are the writer's business.
class JsonWriter {
public:
    explicit JsonWriter(TextSink& out) : out_(out) {}

    JsonWriter& beginObject();
    JsonWriter& endObject();
    JsonWriter& beginArray();
    JsonWriter& endArray();

    /// The name of the next value in an object.
    JsonWriter& key(std::string_view name);

    JsonWriter& value(std::u16string_view text);
    /// A UTF-8 text.
    JsonWriter& value(std::string_view text);
    JsonWriter& value(std::int64_t number);
    JsonWriter& value(std::uint64_t number);
    JsonWriter& value(std::int32_t number) { return value(std::int64_t{number}); }
    JsonWriter& value(std::uint32_t number) { return value(std::uint64_t{number}); }
    JsonWriter& value(std::uint16_t number) { return value(std::uint64_t{number}); }
    /// The shortest text that reads back as the same number; null when it is not finite.
    JsonWriter& value(double number);
    JsonWriter& value(bool truth);
    JsonWriter& value(const char*) = delete;
    JsonWriter& null();

    template<typename Value>
    JsonWriter& member(std::string_view name, const Value& v) {
        return key(name).value(v);
    }

    /// Ends the document with a line break.
    void finish() { out_.write("\n"); }

private:
    void separate();
    void writeString(std::string_view utf8);
    void open(char bracket);
    void close(char bracket);

    TextSink& out_;
    std::vector<bool> hasElements_; ///< one for each open bracket
    bool arrayOutermost_ = false;
    bool afterKey_ = false;
};

} // namespace hourwright::exchange
