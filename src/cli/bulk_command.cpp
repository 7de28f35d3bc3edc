#include "app/bulk_selection.h"
#include "app/replace_in_filters.h"
#include "billing/bulk_change.h"
#include "billing/replace_text.h"
#include "cli/entry_fields.h"
#include "cli/filter_option.h"
#include "cli/handlers.h"
#include "cli/session.h"
#include "platform/utf.h"
#include "resources/texts/history.h"

#include <functional>

namespace hourwright::cli {

namespace {

using billing::EntrySelection;
using resources::StringId;

using Change =
    std::function<std::optional<std::size_t>(platform::Transaction&, store::RecordStore&, const EntrySelection&)>;

ExitCode printCount(Session& session, std::size_t count) {
    session.out().writeLine(std::to_string(count));
    return ExitCode::done;
}

// Changes the selected entries in one transaction and prints how many they are.
ExitCode changeSelected(Session& session, const resources::Text& name, const app::EntryFilter& filter,
                        const Change& change) {
    const EntrySelection selection = app::selectionOf(filter, *session.locales().user);
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(name);
    if (!transaction)
        return session.failWrite();
    const auto matches = change(*transaction, stores->entries(), selection);
    if (!matches)
        return session.fail(stores->entries().lastError());
    return transaction->commit() ? printCount(session, *matches) : session.failWrite();
}

// The filter of a bulk command, which must be bounded; else the command ends with `failure`.
std::optional<app::EntryFilter> boundedFilter(Session& session, const Arguments& arguments, ExitCode& failure) {
    if (!arguments.has(option::from) || !arguments.has(option::to)) {
        failure = session.misuse("--from and --to are needed");
        return std::nullopt;
    }
    failure = ExitCode::refused;
    return entryFilterOption(session, arguments);
}

bool confirmDeletion(Session& session) {
    return session.messages().show({.id = StringId::deleteByCriteria,
                                    .text = std::u16string(resources::string(StringId::deleteByCriteria)),
                                    .icon = platform::Icon::warning,
                                    .buttons = platform::Buttons::okCancel,
                                    .defaultAnswer = platform::Answer::cancel}) == platform::Answer::ok;
}

ExitCode replaceInStores(Session& session, store::Stores& stores, const billing::ReplaceRequest& request) {
    const auto transaction = session.begin(resources::history::replaceText);
    if (!transaction)
        return session.failWrite();
    const auto counts = billing::replaceText(*transaction, stores, request, session.clock().now());
    if (!counts || !transaction->commit())
        return session.failWrite();
    static_cast<void>(session.settings()); // a first run is told by the key that the filters would make
    app::replaceInFilters(session.registry(), request);
    return printCount(session, request.type == billing::ReplaceType::category ? counts->expenses : counts->entries);
}

} // namespace

ExitCode bulkMarkPaid(Session& session, const Arguments& arguments) {
    ExitCode failure{};
    const auto filter = boundedFilter(session, arguments, failure);
    if (!filter)
        return failure;
    const platform::FileTime now = session.clock().now();
    const auto text = arguments.value(option::paidDate).value_or("");
    const auto paidDate = text.empty() ? std::optional(now) : paidDateOf(session, text);
    if (!paidDate)
        return ExitCode::refused;
    return changeSelected(session, resources::history::markPaid, *filter,
                          [&](auto& transaction, auto& entries, const auto& selection) {
                              return billing::markAllPaid(transaction, entries, selection, *paidDate, now);
                          });
}

ExitCode bulkMarkBilled(Session& session, const Arguments& arguments) {
    ExitCode failure{};
    const auto filter = boundedFilter(session, arguments, failure);
    if (!filter)
        return failure;
    const platform::FileTime now = session.clock().now();
    return changeSelected(session, resources::history::markBilled, *filter,
                          [now](auto& transaction, auto& entries, const auto& selection) {
                              return billing::markAllBilled(transaction, entries, selection, now);
                          });
}

ExitCode bulkDelete(Session& session, const Arguments& arguments) {
    ExitCode failure{};
    const auto filter = boundedFilter(session, arguments, failure);
    if (!filter)
        return failure;
    if (!confirmDeletion(session))
        return ExitCode::refused;
    return changeSelected(session, resources::history::deleteByCriteria, *filter,
                          [](auto& transaction, auto& entries, const auto& selection) {
                              return billing::deleteAll(transaction, entries, selection);
                          });
}

ExitCode bulkReplace(Session& session, const Arguments& arguments) {
    const auto words = arguments.positionals();
    const billing::ReplaceRequest request{
        .type = billing::ReplaceType{static_cast<std::uint8_t>(choiceOf(words[0], option::replaceChoices))},
        .find = platform::toUtf16(words[1]),
        .replacement = platform::toUtf16(words[2])};
    if (const auto refusal = billing::checkReplace(request))
        return session.refuse(*refusal);
    if (!session.messages().ask(StringId::replaceConfirm))
        return ExitCode::refused;
    store::Stores* const stores = session.stores();
    return stores ? replaceInStores(session, *stores, request) : ExitCode::refused;
}

} // namespace hourwright::cli
