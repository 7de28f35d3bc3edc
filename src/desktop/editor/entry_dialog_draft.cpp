#include "desktop/editor/billing_page.h"
#include "desktop/editor/custom_page.h"
#include "desktop/editor/entry_dialog.h"
#include "desktop/editor/general_page.h"
#include "desktop/editor/rate_field.h"
#include "desktop/note/note_editor.h"

namespace hourwright::desktop {

void EntryDialog::setTimer(const std::optional<app::KeptTimer>& timer) {
    timer_ = timer;
    ofTimer_ = true;
}

// What a timer still has need not be kept before it is touched.
std::optional<app::KeptRecord> EntryDialog::draftToKeep() const {
    if (saved_ || (!isChanged() && (!ofTimer_ || timer_)))
        return std::nullopt;
    return app::KeptEntry{.stored = stored_,
                          .base = entry_,
                          .opened = opened_,
                          .draft = collect(),
                          .timesTaken = timesTaken_,
                          .suggestsRates = suggests_,
                          .timer = timer_};
}

// The fields show what they showed; whether the record has changed since is looked at when it is stored.
void EntryDialog::restore(const app::KeptEntry& kept) {
    restored_ = true;
    entry_ = kept.base;
    opened_ = kept.opened;
    timesTaken_ = kept.timesTaken;
    suggests_ = kept.suggestsRates;
    timer_ = kept.timer;
    offer_.choose(kept.draft.client.value_or(u""));
    general_->show(kept.draft);
    billing_->show(kept.draft);
    billing_->rate().restore(kept.draft, offer_.rates());
    if (kept.draft.note)
        note_->showEdited(kept.draft.note->blob);
    custom_->show(kept.draft);
    offerChoices();
    refresh();
}

} // namespace hourwright::desktop
