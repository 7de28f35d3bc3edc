#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/json_writer.h"
#include "cli/property_output.h"
#include "cli/property_text.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "platform/utf.h"
#include "resources/texts/history.h"

#include <algorithm>

namespace hourwright::cli {

namespace {

using platform::Database;
using platform::DatabaseInfo;
using platform::ObjectId;
using platform::ObjectStore;
using platform::Seek;

std::string idText(ObjectId id) {
    return std::to_string(static_cast<std::uint32_t>(id));
}

std::string sortText(platform::PropertyId property) {
    return std::to_string(property.number()) + ' ' + std::string(typeName(property.type()));
}

// The volume with the program's databases on it; null, with the message shown, when they cannot be opened.
ObjectStore* volume(Session& session) {
    return session.stores() ? session.objects() : nullptr;
}

// The database of that name; null, with the message shown, when there is none.
std::unique_ptr<Database> openDatabase(Session& session, ObjectStore& objects, std::string_view name) {
    const std::vector<DatabaseInfo> all = objects.databases();
    const auto info = std::ranges::find(all, platform::toUtf16(name), &DatabaseInfo::name);
    if (info == all.end()) {
        session.fail(platform::PlatformError::fileNotFound, "There is no database of this name.");
        return nullptr;
    }
    auto database = objects.openDatabase(info->id, info->sortProperty);
    if (!database)
        session.failWrite();
    return database;
}

ExitCode failRead(Session& session, ObjectStore& objects) {
    return session.fail(objects.lastError(), "The database could not be read.");
}

// Calls `visit` with the id and properties of every record. False when reading failed.
template<typename Visitor>
bool forEachRecord(Session& session, ObjectStore& objects, Database& database, Visitor visit) {
    const auto snapshot = objects.snapshot();
    platform::PropertyBuffer properties;
    ObjectId id = database.seek(Seek::toBeginning());
    for (; id != ObjectId::none && !session.out().failed(); id = database.seek(Seek::fromCurrent(1))) {
        if (!database.read(properties))
            return false;
        visit(id, properties);
    }
    return id != ObjectId::none || objects.lastError() == platform::PlatformError::noMoreItems;
}

bool dumpJson(Session& session, ObjectStore& objects, Database& database) {
    JsonWriter json(session.out());
    json.beginArray();
    const bool read =
        forEachRecord(session, objects, database, [&](ObjectId id, const platform::PropertyBuffer& properties) {
            json.beginObject().member("id", static_cast<std::uint32_t>(id)).key("properties");
            writeProperties(json, properties);
            json.endObject();
        });
    json.endArray().finish();
    return read;
}

bool dumpLines(Session& session, ObjectStore& objects, Database& database) {
    return forEachRecord(session, objects, database, [&](ObjectId id, const platform::PropertyBuffer& properties) {
        session.out().writeLine(idText(id));
        writeProperties(session.out(), properties);
    });
}

// The properties on the command line; nothing, with the usage shown, when one is none.
std::optional<std::vector<OwnedProperty>> parseProperties(Session& session, std::span<const std::string_view> texts) {
    std::vector<OwnedProperty> properties;
    for (const std::string_view text : texts) {
        auto property = parseProperty(text);
        if (!property) {
            session.misuse(joined({"'", text, "' is not NUMBER:TYPE=VALUE"}));
            return std::nullopt;
        }
        properties.push_back(std::move(*property));
    }
    return properties;
}

ObjectId writeRecord(Session& session, Database& database, ObjectId id, std::span<const OwnedProperty> properties) {
    std::vector<platform::PropertyValue> values;
    for (const OwnedProperty& property : properties)
        values.push_back(property.value());
    const auto transaction = session.begin(resources::history::writeRecord);
    if (!transaction)
        return ObjectId::none;
    const ObjectId written = database.write(*transaction, id, values);
    return written != ObjectId::none && transaction->commit() ? written : ObjectId::none;
}

std::uint64_t recordCount(ObjectStore& objects, const DatabaseInfo& info) {
    const auto database = objects.openDatabase(info.id, info.sortProperty);
    return database ? database->recordCount() : 0;
}

void databasesJson(Session& session, ObjectStore& objects) {
    JsonWriter json(session.out());
    json.beginArray();
    for (const DatabaseInfo& info : objects.databases()) {
        json.beginObject().member("name", std::u16string_view(info.name)).member("type", info.type);
        json.key("sort_property").beginObject().member("number", info.sortProperty.number());
        json.member("type", typeName(info.sortProperty.type())).endObject();
        json.member("records", recordCount(objects, info)).endObject();
    }
    json.endArray().finish();
}

} // namespace

ExitCode storeDatabases(Session& session, const Arguments&) {
    ObjectStore* const objects = volume(session);
    if (!objects)
        return ExitCode::refused;
    if (session.json()) {
        databasesJson(session, *objects);
        return ExitCode::done;
    }
    TextTable table(session.out(), {{"Name"}, {"Type"}, {"Sort property"}, {"Records", true}});
    for (const DatabaseInfo& info : objects->databases())
        table.add({cellText(info.name), std::to_string(info.type), sortText(info.sortProperty),
                   std::to_string(recordCount(*objects, info))});
    table.finish();
    return ExitCode::done;
}

ExitCode storeDump(Session& session, const Arguments& arguments) {
    ObjectStore* const objects = volume(session);
    if (!objects)
        return ExitCode::refused;
    const auto database = openDatabase(session, *objects, arguments.positionals().front());
    if (!database)
        return ExitCode::refused;
    const bool read = session.json() ? dumpJson(session, *objects, *database) : dumpLines(session, *objects, *database);
    return read ? ExitCode::done : failRead(session, *objects);
}

ExitCode storeWrite(Session& session, const Arguments& arguments) {
    const auto properties = parseProperties(session, arguments.positionals().subspan(1));
    if (!properties)
        return ExitCode::usage;
    ObjectStore* const objects = volume(session);
    if (!objects)
        return ExitCode::refused;
    const auto database = openDatabase(session, *objects, arguments.positionals().front());
    if (!database)
        return ExitCode::refused;
    const ObjectId id{numberOf(arguments.value(option::id).value_or("0"))};
    const ObjectId written = writeRecord(session, *database, id, *properties);
    if (written == ObjectId::none)
        return session.failWrite();
    session.out().writeLine(idText(written));
    return ExitCode::done;
}

ExitCode storeDelete(Session& session, const Arguments& arguments) {
    ObjectStore* const objects = volume(session);
    if (!objects)
        return ExitCode::refused;
    const auto database = openDatabase(session, *objects, arguments.positionals()[0]);
    if (!database)
        return ExitCode::refused;
    const auto transaction = session.begin(resources::history::deleteRecord);
    if (!transaction)
        return session.failWrite();
    const ObjectId id{numberOf(arguments.positionals()[1])};
    if (database->seek(Seek::toId(id)) == ObjectId::none)
        return session.fail(platform::PlatformError::invalidParameter, "There is no record with this id.");
    if (!database->deleteCurrent(*transaction) || !transaction->commit())
        return session.failWrite();
    return ExitCode::done;
}

ExitCode storeCheck(Session& session, const Arguments&) {
    ObjectStore* const objects = session.objects();
    if (!objects)
        return ExitCode::refused;
    std::vector<std::string> findings;
    const bool sound = objects->check([&findings](std::string_view finding) { findings.emplace_back(finding); });
    const bool settingsSound = session.checkSettings([&findings](std::string_view finding) {
        findings.push_back(joined({"settings: ", finding}));
    });
    if (session.json()) {
        JsonWriter json(session.out());
        json.beginArray();
        for (const std::string& finding : findings)
            json.value(std::string_view(finding));
        json.endArray().finish();
    } else {
        for (const std::string& finding : findings)
            session.out().writeLine(finding);
    }
    if (sound && settingsSound)
        return ExitCode::done;
    session.fail(platform::PlatformError::fileCorrupt, sound ? "The settings are damaged." : "The store is damaged.");
    session.hintAtCopies(sound ? platform::CopyPart::settings : platform::CopyPart::records);
    return ExitCode::refused;
}

} // namespace hourwright::cli
