#pragma once

#include "app/drafts/kept_draft.h"

#include <functional>
#include <optional>

namespace hourwright::desktop {

/// A dialog whose contents are not to get lost when the program ends while it is open.
class DraftSource {
public:
    virtual ~DraftSource() = default;

    /// All that it holds; nothing while closing it would lose nothing.
    [[nodiscard]] virtual std::optional<app::KeptRecord> draftToKeep() const = 0;

    /// Called before the record is stored, so that what was kept last is what is stored; set by who keeps it.
    std::function<void()> aboutToStore;
};

} // namespace hourwright::desktop
