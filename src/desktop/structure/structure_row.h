#pragma once

#include "billing/structure_edit.h"
#include "billing/summary.h"

#include <QString>
#include <optional>
#include <string>
#include <variant>

namespace hourwright::desktop {

/// What a row of the client tree stands for. The default rates are a client without id.
using StructureRow = std::variant<billing::StructureItem, store::RateRecord>;

/// The two columns of a row: its name, and what it is; of a rate its type and amount.
[[nodiscard]] QString rowName(const StructureRow& row);
[[nodiscard]] QString rowKind(const StructureRow& row);

/// Tells a row from all others, also after it was read anew.
[[nodiscard]] QString rowKey(const StructureRow& row);

/// Client, project and task that a row of this client stands for; nothing for a contact, a rate or the default rates.
[[nodiscard]] std::optional<billing::SummaryScope> scopeOf(const StructureRow& row, const std::u16string& client);

} // namespace hourwright::desktop
