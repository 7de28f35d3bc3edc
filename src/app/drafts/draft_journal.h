#pragma once

#include "app/drafts/kept_draft.h"
#include "platform/registry.h"

#include <cstddef>
#include <vector>

namespace hourwright::app {

/// What was being edited when the program ended, and when that was written down.
struct KeptDraft {
    std::size_t place = 0;
    platform::FileTime written; ///< local time
    KeptRecord record;
};

/// The journal of what is being edited, kept in a registry of its own in the state directory, a place for each editor.
/// Drafts are no records: the next start offers them, and the journal is empty when no editor is open. Failures are
/// silent.
class DraftJournal {
public:
    static constexpr std::size_t placeCount = 16;

    /// Borrows the registry.
    explicit DraftJournal(platform::Registry& registry) : registry_(registry) {}

    /// Writes a draft down in its place; true when it is there as a whole.
    bool write(std::size_t place, const KeptRecord& record, platform::FileTime now);
    void erase(std::size_t place);
    /// The drafts that are there, in the order of their places. What is damaged is left out.
    [[nodiscard]] std::vector<KeptDraft> read() const;

private:
    platform::Registry& registry_;
};

} // namespace hourwright::app
