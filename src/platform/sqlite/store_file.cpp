#include "platform/sqlite/store_file.h"

namespace hourwright::platform::sqlite {

namespace {

// volume: the next object id. databases: one row a property database, its records in the table records_<id>.
// shapes: the distinct property lists of records, so that each keeps its exact order and types.
std::string layoutSql() {
    return "PRAGMA application_id=" + std::to_string(storeApplicationId) +
           "; PRAGMA user_version=" + std::to_string(storeLayoutVersion) +
           ";"
           "CREATE TABLE volume (next_id INTEGER NOT NULL);"
           "INSERT INTO volume VALUES (1);"
           "CREATE TABLE databases (id INTEGER PRIMARY KEY, name TEXT NOT NULL, type INTEGER NOT NULL,"
           " sort_property INTEGER NOT NULL, UNIQUE (type, name));"
           "CREATE TABLE shapes (id INTEGER PRIMARY KEY, properties TEXT NOT NULL UNIQUE);";
}

StoreProblem problemOf(Connection& connection) {
    const PlatformError error = connection.lastError();
    switch (error) {
    case PlatformError::locked: return {error, "The file is locked by another program."};
    case PlatformError::accessDenied: return {error, "The file cannot be written."};
    case PlatformError::diskFull: return {error, "There is no space left for the file."};
    case PlatformError::fileCorrupt: return {error, "The file is damaged (" + connection.message() + ")."};
    default: return {error, "The file cannot be used (" + connection.message() + ")."};
    }
}

// Number in the first column of the first row; nothing on failure.
std::optional<std::int64_t> number(Connection& connection, std::string_view sql) {
    Statement statement(connection, sql);
    if (statement.step() != Step::row)
        return {};
    return statement.integer(0);
}

// Triggers, virtual tables (which have no page of their own) and views in the place of tables: none of them could do
// harm, but a file that has them was made to mislead.
constexpr std::string_view strangersSql =
    "SELECT count(*) FROM sqlite_schema WHERE type = 'trigger' OR (type = 'table' AND rootpage = 0) OR"
    " (type = 'view' AND (name GLOB 'records_*' OR name GLOB 'journal_*'))";

// Other tools may have turned the file to a write-ahead log.
bool useRollbackJournal(Connection& connection) {
    Statement mode(connection, "PRAGMA journal_mode");
    const bool usesLog = mode.step() == Step::row && mode.text(0) == "wal";
    mode.reset();
    return !usesLog || connection.execute("PRAGMA journal_mode=DELETE");
}

std::optional<StoreProblem> createLayout(Connection& connection) {
    if (!connection.execute("BEGIN IMMEDIATE"))
        return problemOf(connection);
    // Another process may have been faster.
    const auto version = number(connection, "PRAGMA user_version");
    const bool done = version && (*version != 0 || connection.execute(layoutSql())) && connection.execute("COMMIT");
    if (done)
        return {};
    StoreProblem problem = problemOf(connection);
    if (connection.inTransaction())
        (void)connection.execute("ROLLBACK");
    return problem;
}

} // namespace

std::optional<StoreProblem> inspectStoreFile(const std::filesystem::path& file) {
    const FileHeader header = readFileHeader(file);
    switch (header.kind) {
    case FileHeader::Kind::missing:
    case FileHeader::Kind::empty: return {};
    case FileHeader::Kind::unreadable: return StoreProblem{PlatformError::accessDenied, "The file cannot be read."};
    case FileHeader::Kind::foreign: return StoreProblem{PlatformError::fileCorrupt, "The file is not a database."};
    case FileHeader::Kind::sqlite: break;
    }
    if (header.applicationId != storeApplicationId)
        return StoreProblem{PlatformError::openFailed, "The file belongs to another program."};
    if (header.userVersion > storeLayoutVersion)
        return StoreProblem{PlatformError::revisionMismatch, "The file was written by a newer version of Hourwright."};
    return {};
}

std::optional<StoreProblem> prepareStoreFile(Connection& connection) {
    if (!connection.isOpen())
        return problemOf(connection);
    const auto tables = number(connection, "SELECT count(*) FROM sqlite_schema");
    if (!tables)
        return problemOf(connection);
    if (*tables == 0)
        return createLayout(connection);
    if (number(connection, strangersSql) != 0)
        return StoreProblem{PlatformError::fileCorrupt, "The file has triggers or other parts that no store has."};
    const auto parts = number(connection, "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name IN "
                                          "('volume', 'databases', 'shapes')");
    if (parts != 3 || !number(connection, "SELECT next_id FROM volume"))
        return StoreProblem{PlatformError::fileCorrupt, "The file is damaged (its layout is incomplete)."};
    if (!useRollbackJournal(connection))
        return problemOf(connection);
    return {};
}

} // namespace hourwright::platform::sqlite
