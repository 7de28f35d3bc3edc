#include "app/settings_rules.h"
#include "billing/copy_entry.h"
#include "cli/entry_records.h"
#include "cli/field_option.h"
#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/json_writer.h"
#include "platform/utf.h"
#include "resources/texts/history.h"

#include <array>

namespace hourwright::cli {

namespace {

using billing::CopyField;
using billing::CopyOrder;
using billing::CopyTarget;

constexpr std::array fieldOptions{
    FieldOption<CopyField>{CopyField::date, &option::copyTo},
    FieldOption<CopyField>{CopyField::endDate, &option::copyUntil},
    FieldOption<CopyField>{CopyField::duration, &option::duration},
};

std::optional<CopyTarget> targetOf(const Arguments& arguments) {
    if (arguments.has(option::copyTo))
        return CopyTarget::date;
    if (arguments.has(option::restOfWeek))
        return CopyTarget::restOfWeek;
    return arguments.has(option::copyUntil) ? std::optional(CopyTarget::untilDate) : std::nullopt;
}

// What the options order; the exit code when they are wrong, with the message shown.
std::optional<ExitCode> readOrder(Session& session, const Arguments& arguments, CopyOrder& order) {
    const auto target = targetOf(arguments);
    if (!target)
        return session.misuse("say where to: --to DATE, --rest-of-week or --until DATE");
    order.target = *target;
    order.includeWeekend = arguments.has(option::includeWeekend);
    if (const auto hours = arguments.value(option::duration))
        order.duration = platform::toUtf16(*hours);
    if (order.target == CopyTarget::restOfWeek)
        return {};
    const auto text = arguments.value(order.target == CopyTarget::date ? option::copyTo : option::copyUntil);
    const auto day = session.day(text.value_or(""));
    if (!day)
        return ExitCode::refused;
    order.date = *day;
    return {};
}

ExitCode showRefusal(Session& session, const billing::CopyRefusal& refusal) {
    if (refusal.field == CopyField::endDate)
        return session.fail(refusal.error, joined({"An end date may be at most ", std::to_string(billing::maxCopyDays),
                                                   " days after the entry."}));
    return showRefusal<CopyField>(session, refusal, fieldOptions, "entry");
}

billing::CopyRules rulesOf(Session& session) {
    return {app::timeRules(session.settings()), app::weekStart(session.settings()), session.clock().now()};
}

void printIds(Session& session, const std::vector<store::RecordId>& ids) {
    if (!session.json()) {
        for (const store::RecordId id : ids)
            session.out().writeLine(std::to_string(static_cast<std::uint32_t>(id)));
        return;
    }
    JsonWriter json(session.out());
    json.beginArray();
    for (const store::RecordId id : ids)
        json.value(static_cast<std::uint32_t>(id));
    json.endArray().finish();
}

} // namespace

ExitCode entryCopy(Session& session, const Arguments& arguments) {
    CopyOrder order;
    if (const auto failure = readOrder(session, arguments, order))
        return *failure;
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(resources::history::copyEntry);
    if (!transaction)
        return session.failWrite();
    store::TimeEntry entry;
    if (!readEntry(session, *stores, recordIdOf(arguments.positionals().front()), entry))
        return ExitCode::refused;
    billing::EntryCopies copies;
    if (const auto refusal = billing::makeCopies(entry, order, rulesOf(session), copies))
        return showRefusal(session, *refusal);
    const auto ids = billing::saveCopies(*transaction, *stores, copies);
    if (!ids || !transaction->commit())
        return session.failWrite();
    printIds(session, *ids);
    return ExitCode::done;
}

} // namespace hourwright::cli
