#include "app/copy_keeping.h"
#include "cli/date_text.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/session.h"
#include "cli/text_table.h"

#include <algorithm>

namespace hourwright::cli {

namespace {

using platform::CopyHealth;
using platform::CopyOutcome;
using platform::MadeCopy;
using platform::StoreCopies;
using platform::StoreCopy;
using resources::StringId;

bool always() {
    return true;
}

std::string_view healthText(CopyHealth health) {
    return health == CopyHealth::sound ? "sound" : "damaged";
}

void writeCopy(JsonWriter& json, const StoreCopy& copy, const std::optional<CopyHealth>& health) {
    json.beginObject();
    json.member("name", std::string_view(copy.name));
    json.member("made", std::string_view(dateTimeText(copy.time)));
    json.member("records", copy.records);
    json.member("bytes", copy.bytes);
    json.member("settings", copy.hasSettings);
    if (health)
        json.member("sound", *health == CopyHealth::sound);
    json.endObject();
}

void writeUnreadable(JsonWriter& json, const StoreCopy& copy) {
    json.beginObject();
    json.member("name", std::string_view(copy.name));
    json.member("made", std::string_view(dateTimeText(copy.time)));
    json.member("sound", false);
    json.endObject();
}

ExitCode refuseCopy(Session& session, const MadeCopy& made) {
    if (made.outcome == CopyOutcome::noSource && session.refuseGoneRecords())
        return ExitCode::refused;
    if (made.outcome == CopyOutcome::noSource)
        return session.refuse(StringId::copyNotMade, "There are no records yet.");
    const ExitCode code = session.refuse(StringId::copyNotMade, made.reason);
    if (made.outcome == CopyOutcome::sourceDamaged)
        session.hintAtCopies();
    return code;
}

// The copy of that name, or the newest that verifies; nothing, with the message shown, when there is none.
std::optional<StoreCopy> chosenCopy(Session& session, StoreCopies& copies, platform::CopyPart part,
                                    const Arguments& arguments) {
    if (arguments.positionals().empty()) {
        auto newest = app::newestSoundCopy(copies, part);
        if (!newest)
            session.refuse(StringId::noSuchCopy, "No copy is there that is sound.");
        return newest;
    }
    const auto all = copies.list();
    const std::string_view name = arguments.positionals().front();
    const auto named = std::ranges::find(all, name, &StoreCopy::name);
    if (named != all.end())
        return *named;
    const auto unreadable = copies.unreadable();
    const bool isThere = std::ranges::find(unreadable, name, &StoreCopy::name) != unreadable.end();
    session.refuse(isThere ? StringId::copyDamaged : StringId::noSuchCopy);
    return std::nullopt;
}

} // namespace

ExitCode storeCopy(Session& session, const Arguments&) {
    const auto copies = session.copies();
    const MadeCopy made = app::makeCopy(*copies, session.clock().localTime(), always);
    if (made.outcome != CopyOutcome::done)
        return refuseCopy(session, made);
    if (session.json()) {
        JsonWriter json(session.out());
        writeCopy(json, made.copy, CopyHealth::sound);
        json.finish();
    } else {
        session.out().writeLine(made.copy.name);
    }
    return ExitCode::done;
}

ExitCode storeCopies(Session& session, const Arguments& arguments) {
    const auto copies = session.copies();
    const bool verify = arguments.has(option::verify);
    const auto healthOf = [&](const StoreCopy& copy) {
        return verify ? std::optional(copies->verify(copy, always)) : std::nullopt;
    };
    const auto all = copies->list();
    const auto unreadable = copies->unreadable();
    bool allSound = unreadable.empty();
    JsonWriter json(session.out());
    TextTable table(session.out(), {{"Name"}, {"Made"}, {"Records", true}, {"Bytes", true}, {"State"}});
    if (session.json())
        json.beginArray();
    for (const StoreCopy& copy : all) {
        const auto health = healthOf(copy);
        allSound = allSound && health.value_or(CopyHealth::sound) == CopyHealth::sound;
        if (session.json())
            writeCopy(json, copy, health);
        else
            table.add({copy.name, dateTimeText(copy.time), std::to_string(copy.records), std::to_string(copy.bytes),
                       std::string(health ? healthText(*health) : "not verified")});
    }
    for (const StoreCopy& copy : unreadable) {
        if (session.json())
            writeUnreadable(json, copy);
        else
            table.add({copy.name, dateTimeText(copy.time), "?", "?", std::string(healthText(CopyHealth::damaged))});
    }
    if (session.json())
        json.endArray().finish();
    else
        table.finish();
    return allSound ? ExitCode::done : session.fail(platform::PlatformError::fileCorrupt, "A copy is damaged.");
}

ExitCode storeRestore(Session& session, const Arguments& arguments) {
    const auto part =
        arguments.has(option::restoreSettings) ? platform::CopyPart::settings : platform::CopyPart::records;
    const auto copies = session.copies();
    const auto copy = chosenCopy(session, *copies, part, arguments);
    if (!copy)
        return ExitCode::refused;
    const auto window = session.keepWindowAway();
    if (window.claim == platform::Claim::otherRuns)
        return session.refuse(StringId::recordsInUse, "Its window is open.");
    if (!app::askToRestore(session.messages(), StringId::restoreQuestion, *copy, *session.locales().user))
        return ExitCode::refused;
    const auto restored = app::restoreCopy(*copies, *copy, part, session.clock().localTime(), session.messages());
    if (restored.outcome != platform::RestoreOutcome::done)
        return ExitCode::refused;
    session.out().writeLine(restored.kept.string());
    return ExitCode::done;
}

} // namespace hourwright::cli
