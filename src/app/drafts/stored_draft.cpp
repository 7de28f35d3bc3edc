#include "app/drafts/stored_draft.h"

#include "store/date_walk.h"

namespace hourwright::app {

namespace {

// The record that the draft makes; nothing while its editor would refuse it.
std::optional<store::TimeEntry> madeOf(const KeptEntry& kept, const billing::TimeRules& rules) {
    store::TimeEntry entry = kept.base;
    if (billing::applyDraft(billing::touchedOnly(kept.draft, kept.opened), rules, entry))
        return std::nullopt;
    return entry;
}

std::optional<store::ExpenseEntry> madeOf(const KeptExpense& kept, const billing::TimeRules& /*rules*/) {
    store::ExpenseEntry expense = kept.stored;
    if (billing::applyDraft(billing::touchedOnly(kept.draft, billing::draftOf(kept.stored)), expense))
        return std::nullopt;
    return expense;
}

template<typename Record>
bool isThere(store::RecordStore& records, Record made, platform::FileTime written) {
    store::DateRange range{.after = std::nullopt, .last = made.date};
    if (made.date.ticks > 0)
        range.after = platform::FileTime{made.date.ticks - 1};
    store::DateWalk walk(records, range);
    for (Record stored; walk.next(stored) == store::ReadResult::ok;) {
        if (stored.modified < written)
            continue;
        made.id = stored.id; // these three it got when it was stored
        made.modified = stored.modified;
        made.flags = stored.flags;
        if (made == stored)
            return true;
    }
    return false;
}

template<typename Kept>
bool wasStored(store::RecordStore& records, const Kept& kept, platform::FileTime written,
               const billing::TimeRules& rules) {
    auto made = kept.stored.id == store::RecordId::none ? madeOf(kept, rules) : std::nullopt;
    return made && isThere(records, std::move(*made), written);
}

} // namespace

bool wasStored(store::Stores& stores, const KeptDraft& draft, const billing::TimeRules& rules) {
    if (const auto* entry = std::get_if<KeptEntry>(&draft.record))
        return wasStored(stores.entries(), *entry, draft.written, rules);
    return wasStored(stores.expenses(), std::get<KeptExpense>(draft.record), draft.written, rules);
}

} // namespace hourwright::app
