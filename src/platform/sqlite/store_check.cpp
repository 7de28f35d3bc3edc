#include "platform/sqlite/store_check.h"

#include "platform/sqlite/row_reader.h"
#include "platform/utf.h"

namespace hourwright::platform::sqlite {

namespace {

using Report = std::function<void(std::string_view)>;

bool checkStructure(Connection& connection, const Report& report) {
    Statement rows(connection, "PRAGMA integrity_check");
    Step step = Step::failed;
    bool sound = true;
    while ((step = rows.step()) == Step::row) {
        if (rows.text(0) == "ok")
            continue;
        sound = false;
        report(rows.text(0));
    }
    if (step == Step::failed) {
        sound = false;
        report(connection.message());
    }
    return sound;
}

// Ids that were given already must lie below the counter, or one could be given twice.
bool checkIds(Connection& connection, const DatabaseInfo& database, const Report& report) {
    Statement row(connection,
                  "SELECT coalesce(max(id), 0) >= (SELECT next_id FROM volume) FROM " + tableName(database.id));
    if (row.step() == Step::row && row.integer(0) == 0)
        return true;
    report(printableUtf8(database.name) + ": a record's id is not below the volume's next id");
    return false;
}

// The counter has no checksum: it must at least be above all that was given and leave numbers to give.
bool checkCounter(Connection& connection, const Report& report) {
    Statement row(connection, "SELECT count(*) = 1 AND min(typeof(next_id)) = 'integer' AND min(next_id) > (SELECT"
                              " coalesce(max(id), 0) FROM databases) AND max(next_id) <= 4294967296 FROM volume");
    if (row.step() == Step::row && row.integer(0) == 1)
        return true;
    report("the volume's next id cannot be right");
    return false;
}

// Neither has the row of a database. Name and type stand in an index, too, which the structure's check compares; the
// sort property stands in the definition of the index that serves the order.
bool checkOrder(Connection& connection, const DatabaseInfo& database, const Report& report) {
    Statement row(connection, "SELECT name FROM pragma_index_info(?1)");
    const std::string index = tableName(database.id) + "_order";
    row.bind(1, index);
    if (isKnownType(database.sortProperty.type()) && row.step() == Step::row &&
        row.text(0) == columnName(database.sortProperty))
        return true;
    report(printableUtf8(database.name) + ": the sort property is not that of the index");
    return false;
}

bool checkRecords(Volume& volume, const DatabaseInfo& database, const Report& report) {
    const auto table = volume.table(database.id);
    if (!table)
        return false;
    RowReader reader(*table, volume.shapes(), database.sortProperty);
    Statement rows(volume.connection(), "SELECT " + reader.selectList() + " FROM " + table->name());
    Step step = Step::failed;
    bool sound = true;
    while ((step = rows.step()) == Step::row) {
        if (reader.verify(rows) == RowReader::Result::ok)
            continue;
        sound = false;
        report(printableUtf8(database.name) + ": record " + std::to_string(rows.integer(RowReader::idColumn)) +
               " does not match its checksum");
    }
    if (step == Step::failed) {
        sound = false;
        report(printableUtf8(database.name) + ": " + volume.connection().message());
    }
    return sound;
}

// The steps of the history, and that each has its parts and nothing else is there.
bool checkHistory(Volume& volume, const Report& report) {
    const auto steps = volume.journal().steps();
    if (!steps) {
        report("history: " + volume.connection().message());
        return false;
    }
    bool sound = true;
    std::int64_t parts = 0;
    for (const JournalStep& row : *steps) {
        bool whole = row.checksum == checksumOf(row);
        for (std::int64_t i = 0; whole && i < row.parts; ++i)
            whole = volume.journal().part(row.firstPart + i).has_value();
        parts += row.parts;
        if (!whole)
            report("history: step " + std::to_string(row.step.id) + " does not match its checksum");
        sound = sound && whole;
    }
    if (!sound || volume.journal().partCount() == parts)
        return sound;
    report("history: a part belongs to no step");
    return false;
}

} // namespace

bool checkStore(Volume& volume, std::span<const DatabaseInfo> databases, const Report& report) {
    bool sound = checkStructure(volume.connection(), report);
    sound = checkCounter(volume.connection(), report) && sound;
    for (const DatabaseInfo& database : databases) {
        if (!checkOrder(volume.connection(), database, report))
            sound = false;
        if (!checkIds(volume.connection(), database, report))
            sound = false;
        if (!checkRecords(volume, database, report))
            sound = false;
    }
    if (!checkHistory(volume, report))
        sound = false;
    return sound;
}

} // namespace hourwright::platform::sqlite
