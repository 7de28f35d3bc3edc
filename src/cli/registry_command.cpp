#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/property_text.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "platform/utf.h"

#include <charconv>

namespace hourwright::cli {

namespace {

using platform::RegistryType;
using platform::RegistryValue;

std::string typeText(RegistryType type) {
    switch (type) {
    case RegistryType::dword: return "DWORD";
    case RegistryType::string: return "SZ";
    case RegistryType::binary: return "BINARY";
    }
    return std::to_string(static_cast<std::uint32_t>(type));
}

std::uint32_t byteAt(const RegistryValue& value, std::size_t index) {
    return std::to_integer<std::uint32_t>(value.data[index]);
}

bool isWholeDword(const RegistryValue& value) {
    return value.type == RegistryType::dword && value.data.size() == 4;
}

std::uint32_t dwordOf(const RegistryValue& value) {
    return byteAt(value, 0) | byteAt(value, 1) << 8 | byteAt(value, 2) << 16 | byteAt(value, 3) << 24;
}

// A string up to its terminator.
std::u16string stringOf(const RegistryValue& value) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < value.data.size(); i += 2) {
        const auto unit = static_cast<char16_t>(byteAt(value, i) | byteAt(value, i + 1) << 8);
        if (unit == 0)
            break;
        text += unit;
    }
    return text;
}

std::string dataText(const RegistryValue& value) {
    if (isWholeDword(value))
        return std::to_string(dwordOf(value));
    if (value.type == RegistryType::string)
        return cellText(stringOf(value));
    return hexText(value.data, ",");
}

void writeData(JsonWriter& json, const RegistryValue& value) {
    if (isWholeDword(value))
        json.value(dwordOf(value));
    else if (value.type == RegistryType::string)
        json.value(std::u16string_view(stringOf(value)));
    else
        json.value(std::string_view(hexText(value.data, ",")));
}

std::vector<RegistryValue> allValues(Session& session) {
    const auto key = session.registry().open(platform::settingsKey);
    return key ? key->values() : std::vector<RegistryValue>{};
}

std::optional<RegistryValue> queryValue(Session& session, std::string_view name) {
    const auto key = session.registry().open(platform::settingsKey);
    return key ? key->query(platform::toUtf16(name)) : std::nullopt;
}

ExitCode noSuchValue(Session& session) {
    return session.fail(platform::PlatformError::fileNotFound, "There is no value of this name.");
}

ExitCode notStored(Session& session) {
    return session.fail(platform::PlatformError::writeFault, "The registry could not be written.");
}

std::optional<std::uint32_t> parseDword(std::string_view text) {
    const bool hex = text.starts_with("0x") || text.starts_with("0X");
    if (hex)
        text.remove_prefix(2);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, hex ? 16 : 10);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

std::vector<std::byte> dwordData(std::uint32_t number) {
    std::vector<std::byte> data;
    for (unsigned shift = 0; shift < 32; shift += 8)
        data.push_back(static_cast<std::byte>(number >> shift & 0xFF));
    return data;
}

std::vector<std::byte> stringData(std::u16string text) {
    text += u'\0';
    std::vector<std::byte> data;
    for (const char16_t unit : text) {
        data.push_back(static_cast<std::byte>(unit & 0xFF));
        data.push_back(static_cast<std::byte>(unit >> 8));
    }
    return data;
}

// "aa,bb,...", or nothing at all for no bytes.
std::optional<std::vector<std::byte>> parseBytes(std::string_view text) {
    std::vector<std::byte> data;
    while (!text.empty()) {
        const auto comma = text.find(',');
        const auto byte = parseHex(text.substr(0, comma));
        if (!byte || byte->size() != 1 || comma == text.size() - 1)
            return std::nullopt;
        data.push_back(byte->front());
        text = comma == std::string_view::npos ? std::string_view{} : text.substr(comma + 1);
    }
    return data;
}

std::optional<RegistryValue> parseData(std::string_view name, std::string_view text) {
    RegistryValue value;
    value.name = platform::toUtf16(name);
    if (text.starts_with("dword:")) {
        const auto number = parseDword(text.substr(6));
        if (!number)
            return std::nullopt;
        value.data = dwordData(*number);
    } else if (text.starts_with("sz:")) {
        value.type = RegistryType::string;
        value.data = stringData(platform::toUtf16(text.substr(3)));
    } else if (text.starts_with("hex:")) {
        auto bytes = parseBytes(text.substr(4));
        if (!bytes)
            return std::nullopt;
        value.type = RegistryType::binary;
        value.data = std::move(*bytes);
    } else {
        return std::nullopt;
    }
    return value;
}

void dumpJson(Session& session) {
    JsonWriter json(session.out());
    json.beginArray();
    for (const RegistryValue& value : allValues(session)) {
        json.beginObject().member("name", std::u16string_view(value.name));
        json.member("type", std::string_view(typeText(value.type)));
        json.member("size", std::uint64_t{value.data.size()}).key("data");
        writeData(json, value);
        json.endObject();
    }
    json.endArray().finish();
}

} // namespace

ExitCode registryDump(Session& session, const Arguments&) {
    if (session.json()) {
        dumpJson(session);
        return ExitCode::done;
    }
    TextTable table(session.out(), {{"Name"}, {"Type"}, {"Size", true}, {"Data"}});
    for (const RegistryValue& value : allValues(session))
        table.add({cellText(value.name), typeText(value.type), std::to_string(value.data.size()), dataText(value)});
    table.finish();
    return ExitCode::done;
}

ExitCode registryGet(Session& session, const Arguments& arguments) {
    const auto value = queryValue(session, arguments.positionals().front());
    if (!value)
        return noSuchValue(session);
    if (session.json()) {
        JsonWriter json(session.out());
        writeData(json, *value);
        json.finish();
    } else {
        session.out().writeLine(dataText(*value));
    }
    return ExitCode::done;
}

ExitCode registrySet(Session& session, const Arguments& arguments) {
    const auto value = parseData(arguments.positionals()[0], arguments.positionals()[1]);
    if (!value)
        return session.misuse("the data are dword:N, sz:TEXT or hex:aa,bb,...");
    const auto key = session.registry().create(platform::settingsKey);
    return key && key->set(*value) ? ExitCode::done : notStored(session);
}

ExitCode registryDelete(Session& session, const Arguments& arguments) {
    const std::string_view name = arguments.positionals().front();
    if (!queryValue(session, name))
        return noSuchValue(session);
    const auto key = session.registry().open(platform::settingsKey);
    return key && key->remove(platform::toUtf16(name)) ? ExitCode::done : notStored(session);
}

ExitCode registryDeleteKey(Session& session, const Arguments&) {
    return session.registry().removeKey(platform::settingsKey) ? ExitCode::done : notStored(session);
}

} // namespace hourwright::cli
