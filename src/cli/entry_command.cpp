#include "app/settings_rules.h"
#include "billing/new_entry.h"
#include "cli/entry_fields.h"
#include "cli/entry_records.h"
#include "cli/handlers.h"
#include "resources/texts/history.h"
#include "store/save.h"

namespace hourwright::cli {

namespace {

using billing::EntryDraft;
using billing::Selected;
using store::TimeEntry;

// Checks the draft and takes it over into the entry.
ExitCode apply(Session& session, const EntryDraft& draft, TimeEntry& entry) {
    if (const auto refusal = billing::applyDraft(draft, app::timeRules(session.settings()), entry))
        return showRefusal(session, *refusal);
    entry.modified = session.clock().now();
    return ExitCode::done;
}

ExitCode save(Session& session, store::Stores& stores, platform::Transaction& transaction, TimeEntry& entry) {
    return store::saveTimeEntry(transaction, stores, entry) && transaction.commit() ? ExitCode::done
                                                                                    : session.failWrite();
}

ExitCode endNeedsStart(Session& session) {
    return session.misuse("--end needs a start time: give --start");
}

} // namespace

ExitCode entryAdd(Session& session, const Arguments& arguments) {
    if (arguments.has(option::end) && arguments.value(option::start).value_or("").empty())
        return endNeedsStart(session);
    EntryDraft draft;
    draft.duration = u""; // a new entry must be given one
    if (const auto failure = readEntryFields(session, arguments, draft))
        return *failure;
    TimeEntry entry = billing::newTimeEntry(app::newEntryDefaults(session.settings()), session.clock().localTime());
    if (const ExitCode applied = apply(session, draft, entry); applied != ExitCode::done)
        return applied;
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(resources::history::addEntry);
    const ExitCode saved = transaction ? save(session, *stores, *transaction, entry) : session.failWrite();
    if (saved == ExitCode::done)
        session.out().writeLine(std::to_string(static_cast<std::uint32_t>(entry.id)));
    return saved;
}

ExitCode entryEdit(Session& session, const Arguments& arguments) {
    EntryDraft draft;
    if (const auto failure = readEntryFields(session, arguments, draft))
        return *failure;
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(resources::history::editEntry);
    if (!transaction)
        return session.failWrite();
    TimeEntry entry;
    if (!readEntry(session, *stores, recordIdOf(arguments.positionals().front()), entry))
        return ExitCode::refused;
    if (draft.end && !draft.start && (draft.withoutStart || !store::hasStart(entry)))
        return endNeedsStart(session);
    const ExitCode applied = apply(session, draft, entry);
    return applied == ExitCode::done ? save(session, *stores, *transaction, entry) : applied;
}

ExitCode entryDelete(Session& session, const Arguments& arguments) {
    return changeRecords(session, arguments, resources::history::deleteEntries, Selected::entries,
                         [](auto& transaction, auto& stores, auto ids) {
                             return billing::deleteRecords(transaction, stores, Selected::entries, ids);
                         });
}

ExitCode entryToggleBilled(Session& session, const Arguments& arguments) {
    return changeRecords(session, arguments, resources::history::toggleBilled, Selected::entries,
                         [now = session.clock().now()](auto& transaction, auto& stores, auto ids) {
                             return billing::toggleBilled(transaction, stores, Selected::entries, ids, now);
                         });
}

ExitCode entryPay(Session& session, const Arguments& arguments) {
    const platform::FileTime now = session.clock().now();
    const auto text = arguments.value(option::paidDate).value_or("");
    const auto paidDate = text.empty() ? std::optional(now) : paidDateOf(session, text);
    if (!paidDate)
        return ExitCode::refused;
    return changeRecords(session, arguments, resources::history::markPaid, Selected::entries,
                         [paidDate, now](auto& transaction, auto& stores, auto ids) {
                             return billing::markPaid(transaction, stores, Selected::entries, ids, *paidDate, now);
                         });
}

ExitCode entryUnpay(Session& session, const Arguments& arguments) {
    return changeRecords(session, arguments, resources::history::markUnpaid, Selected::entries,
                         [now = session.clock().now()](auto& transaction, auto& stores, auto ids) {
                             return billing::markUnpaid(transaction, stores, Selected::entries, ids, now);
                         });
}

} // namespace hourwright::cli
