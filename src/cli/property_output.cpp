#include "cli/property_output.h"

#include "cli/property_text.h"

namespace hourwright::cli {

namespace {

using platform::PropertyValue;
using platform::ValueType;

void writeValue(JsonWriter& json, const PropertyValue& value) {
    switch (value.id.type()) {
    case ValueType::text: json.value(value.text); return;
    case ValueType::fileTime:
    case ValueType::blob: json.value(std::string_view(valueText(value))); return;
    case ValueType::boolean:
    case ValueType::ui2:
    case ValueType::ui4: break;
    }
    json.value(value.number);
}

} // namespace

void writeProperties(JsonWriter& json, const platform::PropertyBuffer& properties) {
    json.beginArray();
    for (const PropertyValue& value : properties.values()) {
        json.beginObject().member("number", value.id.number());
        json.member("type", typeName(value.id.type())).key("value");
        writeValue(json, value);
        json.endObject();
    }
    json.endArray();
}

void writeProperties(Output& out, const platform::PropertyBuffer& properties) {
    for (const PropertyValue& value : properties.values())
        out.writeLine(propertyLine(value));
}

ExitCode showProperties(Session& session, store::RecordStore& records) {
    platform::PropertyBuffer properties;
    if (records.read(properties) != store::ReadResult::ok)
        return session.fail(records.lastError());
    if (session.json()) {
        JsonWriter json(session.out());
        writeProperties(json, properties);
        json.finish();
    } else {
        writeProperties(session.out(), properties);
    }
    return ExitCode::done;
}

} // namespace hourwright::cli
