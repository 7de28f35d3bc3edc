#pragma once

#include "app/drafts/draft_journal.h"
#include "billing/time_rules.h"
#include "store/stores.h"

namespace hourwright::app {

/// True when the draft of a new record was stored after all, just before the program ended: there is a record with all
/// that the draft would give it, written after it. One of a stored record is told by its editor.
[[nodiscard]] bool wasStored(store::Stores& stores, const KeptDraft& draft, const billing::TimeRules& rules);

} // namespace hourwright::app
