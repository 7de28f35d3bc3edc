#pragma once

#include "billing/structure_edit.h"
#include "resources/text.h"

#include <QString>
#include <string>

namespace hourwright::desktop {

/// "Client", "Project", "Task" or "Contact".
[[nodiscard]] QString kindText(billing::StructureKind kind);

/// The name of a change for "Undo": the text with the kind in its place.
[[nodiscard]] std::u16string undoText(const resources::Text& text, billing::StructureKind kind);

} // namespace hourwright::desktop
