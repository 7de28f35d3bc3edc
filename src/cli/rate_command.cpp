#include "billing/rate_draft.h"
#include "cli/client_tree_output.h"
#include "cli/display_width.h"
#include "cli/entry_records.h"
#include "cli/handlers.h"
#include "cli/structure_arguments.h"
#include "cli/text_table.h"
#include "platform/number_text.h"
#include "platform/utf.h"
#include "resources/texts/history.h"

namespace hourwright::cli {

namespace {

using billing::RateDraft;
using billing::RateField;
using store::RateRecord;

void readOptions(const Arguments& arguments, RateDraft& draft) {
    if (const auto type = arguments.value(option::rateKind))
        draft.type = store::RateType{choiceOf(*type, option::rateTypeChoices)};
    if (const auto description = arguments.value(option::rateDescription))
        draft.description = platform::toUtf16(*description);
    if (const auto rate = arguments.value(option::rateAmount))
        draft.rate = platform::toUtf16(*rate);
}

std::string_view optionName(RateField field) {
    switch (field) {
    case RateField::type: return option::rateKind.name;
    case RateField::description: return option::rateDescription.name;
    case RateField::rate: return option::rateAmount.name;
    }
    return "";
}

ExitCode showRefusal(Session& session, const billing::RateRefusal& refusal) {
    if (refusal.error == platform::PlatformError::none)
        return session.refuse(refusal.message);
    if (refusal.error != platform::PlatformError::invalidParameter)
        return session.fail(refusal.error);
    return session.fail(refusal.error, std::string(optionName(refusal.field)) + " does not fit its field.");
}

ExitCode save(Session& session, platform::Transaction& transaction, store::Stores& stores, const RateDraft& draft,
              RateRecord& rate) {
    const auto refusal = billing::saveRate(transaction, stores, draft, session.clock().now(), rate);
    return refusal ? showRefusal(session, *refusal) : ExitCode::done;
}

// Makes the rate with the id of the command line the current record and reads it. False, with the message shown, when
// there is none.
bool readRate(Session& session, store::Stores& stores, const Arguments& arguments, RateRecord& out) {
    const store::RecordId id = recordIdOf(arguments.positionals().front());
    platform::PropertyBuffer properties;
    if (stores.rates().seek(platform::Seek::toId(id)) != store::RecordId::none &&
        stores.rates().read(properties) == store::ReadResult::ok) {
        store::readStructureRecord(id, properties, out);
        return true;
    }
    if (stores.rates().lastError() == platform::PlatformError::noMoreItems)
        session.fail(platform::PlatformError::invalidParameter, "There is no rate with this id.");
    else
        failStructureRead(session, stores);
    return false;
}

} // namespace

ExitCode rateAdd(Session& session, const Arguments& arguments) {
    RateDraft draft;
    readOptions(arguments, draft);
    RateRecord rate;
    const ExitCode added = changeStores(
        session, resources::history::addRate, [&](platform::Transaction& transaction, store::Stores& stores) {
            const auto owner = rateOwnerArgument(session, stores, arguments.positionals().front());
            if (!owner)
                return ExitCode::refused;
            rate.clientId = *owner;
            return save(session, transaction, stores, draft, rate);
        });
    if (added == ExitCode::done)
        session.out().writeLine(std::to_string(static_cast<std::uint32_t>(rate.id)));
    return added;
}

ExitCode rateList(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    const auto owner = stores ? rateOwnerArgument(session, *stores, arguments.positionals().front()) : std::nullopt;
    if (!owner)
        return ExitCode::refused;
    const auto rates = store::recordsOf<RateRecord>(*stores, *owner);
    if (!rates)
        return failStructureRead(session, *stores);
    if (session.json()) {
        JsonWriter json(session.out());
        writeRates(json, *rates);
        json.finish();
        return ExitCode::done;
    }
    TextTable table(session.out(), {{"Id", true}, {"Type"}, {"Description"}, {"Rate", true}});
    for (const RateRecord& rate : *rates)
        table.add({std::to_string(static_cast<std::uint32_t>(rate.id)), rateTypeText(rate.type),
                   cellText(rate.description), platform::hundredths(rate.rate)});
    table.finish();
    return ExitCode::done;
}

ExitCode rateEdit(Session& session, const Arguments& arguments) {
    return changeStores(session, resources::history::editRate,
                        [&](platform::Transaction& transaction, store::Stores& stores) {
                            RateRecord rate;
                            if (!readRate(session, stores, arguments, rate))
                                return ExitCode::refused;
                            RateDraft draft = billing::draftOf(rate);
                            readOptions(arguments, draft);
                            return save(session, transaction, stores, draft, rate);
                        });
}

ExitCode rateDelete(Session& session, const Arguments& arguments) {
    return changeStores(session, resources::history::deleteRate,
                        [&](platform::Transaction& transaction, store::Stores& stores) {
                            RateRecord rate;
                            if (!readRate(session, stores, arguments, rate))
                                return ExitCode::refused;
                            return stores.rates().deleteCurrent(transaction) ? ExitCode::done : session.failWrite();
                        });
}

} // namespace hourwright::cli
