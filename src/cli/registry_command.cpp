#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/registry_text.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "platform/utf.h"

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

void writeData(JsonWriter& json, const RegistryValue& value) {
    if (const auto number = registryDword(value))
        json.value(*number);
    else if (value.type == RegistryType::string)
        json.value(std::u16string_view(registryString(value)));
    else
        json.value(std::string_view(registryText(value)));
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
        table.add({cellText(value.name), typeText(value.type), std::to_string(value.data.size()), registryText(value)});
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
        session.out().writeLine(registryText(*value));
    }
    return ExitCode::done;
}

ExitCode registrySet(Session& session, const Arguments& arguments) {
    const auto value = parseRegistryArgument(arguments.positionals()[0], arguments.positionals()[1]);
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
