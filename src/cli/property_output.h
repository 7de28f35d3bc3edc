#pragma once

#include "cli/json_writer.h"
#include "cli/session.h"
#include "platform/property.h"

namespace hourwright::cli {

/// The properties as an array of objects with "number", "type" and "value"; numbers as numbers, the rest as texts.
void writeProperties(JsonWriter& json, const platform::PropertyBuffer& properties);

/// The properties as lines, in stored order.
void writeProperties(Output& out, const platform::PropertyBuffer& properties);

/// Prints the properties of the store's current record, one a line or as one JSON document.
ExitCode showProperties(Session& session, store::RecordStore& records);

} // namespace hourwright::cli
