#pragma once

#include "app/drafts/kept_draft.h"
#include "desktop/record_view.h"

#include <functional>

class QDialog;

namespace hourwright::desktop {

/// What the commands for single records do with one kind of record; absent: nothing. Time entries have theirs built
/// in, expenses set them with their own commands.
struct RecordEditing {
    std::function<void(const EntrySeed&)> openNew;
    std::function<void(store::RecordId)> edit;
    std::function<void(store::RecordId)> createCopy;
    std::function<QDialog*(const app::KeptExpense&)> reopen; ///< goes on with a draft that was left behind
};

} // namespace hourwright::desktop
