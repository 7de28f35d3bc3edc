#pragma once

#include "cli/json_writer.h"
#include "cli/output.h"
#include "store/client_tree.h"

#include <span>

namespace hourwright::cli {

/// One client with all that belongs to it, as a JSON object.
void writeClientTree(JsonWriter& json, const store::ClientTree& tree);
/// The same as indented lines for people.
void writeClientTree(Output& out, const store::ClientTree& tree);

/// Rates as a JSON array.
void writeRates(JsonWriter& json, std::span<const store::RateRecord> rates);

/// "Overtime Rate"; the number when it is no known type.
[[nodiscard]] std::string rateTypeText(store::RateType type);

} // namespace hourwright::cli
