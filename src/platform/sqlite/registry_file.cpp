#include "platform/sqlite/registry_file.h"

#include "platform/posix/private_file.h"
#include "platform/sqlite/registry_checksum.h"
#include "platform/utf.h"

#include <algorithm>
#include <sqlite3.h>

namespace hourwright::platform::sqlite {

namespace {

constexpr std::uint32_t currentVersion = 2;
constexpr std::uint32_t firstWithChecksums = 2;
constexpr std::chrono::milliseconds busyTimeout{5000};

// Key ids are never used again, so that a key still open when it is deleted does not show another one's values.
constexpr const char* schema = R"(
    CREATE TABLE key (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        path TEXT NOT NULL UNIQUE COLLATE NOCASE);
    CREATE TABLE value (
        place INTEGER PRIMARY KEY,
        key INTEGER NOT NULL REFERENCES key (id),
        name TEXT NOT NULL COLLATE NOCASE,
        type INTEGER NOT NULL CHECK (type IN (1, 3, 4)),
        data BLOB NOT NULL,
        checksum INTEGER,
        UNIQUE (key, name));
)";

// Values that were found damaged when another one was stored in their place.
constexpr const char* damagedSchema =
    "CREATE TABLE damaged (key INTEGER NOT NULL, name TEXT NOT NULL COLLATE NOCASE, type INTEGER, data BLOB,"
    " checksum INTEGER, UNIQUE (key, name))";

constexpr std::string_view countTablesSql = "SELECT count(*) FROM sqlite_schema";
constexpr std::string_view findKeySql = "SELECT id FROM key WHERE path = ?1";
constexpr std::string_view insertKeySql = "INSERT INTO key (path) VALUES (?1) ON CONFLICT DO NOTHING";
constexpr std::string_view removeValuesSql =
    "DELETE FROM value WHERE key IN (SELECT id FROM key WHERE path = ?1 OR substr(path, 1, length(?2)) = ?2 COLLATE "
    "NOCASE)";
constexpr std::string_view removeKeysSql =
    "DELETE FROM key WHERE path = ?1 OR substr(path, 1, length(?2)) = ?2 COLLATE NOCASE";
constexpr std::string_view findValueSql = "SELECT name, type, data, checksum FROM value WHERE key = ?1 AND name = ?2";
constexpr std::string_view listValuesSql = "SELECT name, type, data, checksum FROM value WHERE key = ?1 ORDER BY place";
// The same in files of the first version.
constexpr std::string_view oldFindValueSql = "SELECT name, type, data FROM value WHERE key = ?1 AND name = ?2";
constexpr std::string_view oldListValuesSql = "SELECT name, type, data FROM value WHERE key = ?1 ORDER BY place";
constexpr std::string_view setValueSql =
    "INSERT INTO value (key, name, type, data, checksum) SELECT id, ?2, ?3, ?4, ?5 FROM key WHERE id = ?1 "
    "ON CONFLICT (key, name) DO UPDATE SET type = excluded.type, data = excluded.data, checksum = excluded.checksum";
constexpr std::string_view removeValueSql = "DELETE FROM value WHERE key = ?1 AND name = ?2";
constexpr std::string_view keepDamagedSql =
    "INSERT OR REPLACE INTO damaged SELECT key, name, type, data, checksum FROM value WHERE key = ?1 AND name = ?2";
constexpr std::string_view removeDamagedSql = "DELETE FROM damaged WHERE key = ?1 AND name = ?2";
constexpr std::string_view removeAllDamagedSql =
    "DELETE FROM damaged WHERE key IN (SELECT id FROM key WHERE path = ?1 OR substr(path, 1, length(?2)) = ?2 COLLATE "
    "NOCASE)";
RegistryValue readRow(const Statement& row) {
    const auto data = row.blob(2);
    return {.name = toUtf16(row.text(0)),
            .type = static_cast<RegistryType>(row.integer(1)),
            .data = {data.begin(), data.end()}};
}

std::int64_t readNumber(Connection& connection, std::string_view sql) {
    Statement statement(connection, sql);
    return statement.step() == Step::row ? statement.integer(0) : -1;
}

// Path of the keys below a key, as they all begin.
std::string below(std::string_view path) {
    return std::string(path) + '\\';
}

} // namespace

bool RegistryFile::fail(std::string_view reason) {
    problem_ = file_.string() + ": " + std::string(reason);
    return false;
}

// False without a problem when there is no file yet.
bool RegistryFile::open() {
    problem_.clear();
    if (connection_.isOpen())
        return true;
    const FileHeader header = readFileHeader(file_);
    switch (header.kind) {
    case FileHeader::Kind::missing:
    case FileHeader::Kind::empty: return false;
    case FileHeader::Kind::unreadable: return fail("the settings cannot be read");
    case FileHeader::Kind::foreign: return fail("this is no settings file");
    case FileHeader::Kind::sqlite: break;
    }
    if (header.applicationId != applicationId || header.userVersion == 0)
        return fail("this is no settings file");
    if (header.userVersion > currentVersion)
        return fail("the settings are of a newer version of the program");
    return connect();
}

bool RegistryFile::connect() {
    connection_ = Connection(file_, waitedInVain_ ? std::chrono::milliseconds(0) : busyTimeout);
    const std::int64_t version = readNumber(connection_, "PRAGMA user_version");
    waitedInVain_ = connection_.lastError() == PlatformError::locked;
    hasChecksums_ = version >= firstWithChecksums;
    if (connection_.isOpen() && !waitedInVain_ && prepareReading()) {
        connection_.setBusyTimeout(busyTimeout);
        return true;
    }
    // The making of the file may have been cut short; SQLite has emptied it by now.
    const bool neverMade = connection_.isOpen() && !waitedInVain_ && readNumber(connection_, countTablesSql) == 0;
    if (!neverMade)
        failWithMessage();
    connection_ = {};
    return false;
}

bool RegistryFile::prepare(Statement& statement, std::string_view sql) {
    statement = Statement(connection_, sql);
    return static_cast<bool>(statement);
}

bool RegistryFile::prepareReading() {
    return prepare(findKey_, findKeySql) && prepare(findValue_, hasChecksums_ ? findValueSql : oldFindValueSql) &&
           prepare(listValues_, hasChecksums_ ? listValuesSql : oldListValuesSql);
}

bool RegistryFile::prepareWriting() {
    return prepare(insertKey_, insertKeySql) && prepare(removeValues_, removeValuesSql) &&
           prepare(removeKeys_, removeKeysSql) && prepare(setValue_, setValueSql) &&
           prepare(removeValue_, removeValueSql) && prepare(keepDamaged_, keepDamagedSql) &&
           prepare(removeDamaged_, removeDamagedSql) && prepare(removeAllDamaged_, removeAllDamagedSql);
}

bool RegistryFile::makeFile() {
    if (createPrivateFile(file_) != PlatformError::none)
        return fail("the settings file cannot be made");
    Connection connection(file_, busyTimeout);
    if (!connection.isOpen() || !connection.execute("BEGIN IMMEDIATE") || !fillFile(connection) ||
        !connection.execute("COMMIT"))
        return fail(connection.message());
    return open();
}

// Another process may have been faster; then there is nothing to do.
bool RegistryFile::fillFile(Connection& connection) {
    if (readNumber(connection, countTablesSql) != 0)
        return true;
    return connection.execute("PRAGMA application_id = " + std::to_string(applicationId)) &&
           connection.execute("PRAGMA user_version = " + std::to_string(currentVersion)) &&
           connection.execute(schema) && connection.execute(damagedSchema);
}

// Makes ready for the first write. A damaged file is not written to: it is small, so the whole of it is looked at.
bool RegistryFile::makeWritable() {
    if (writable_)
        return true;
    Statement check(connection_, "PRAGMA integrity_check(1)");
    if (check.step() != Step::row)
        return failWithMessage();
    if (check.text(0) != "ok")
        return fail("the settings file is damaged: " + std::string(check.text(0)));
    check.reset();
    writable_ = connection_.execute("PRAGMA journal_mode = DELETE") && addChecksums() && prepareWriting();
    return writable_ || failWithMessage();
}

// Brings a file of the first version to the present one. What it holds now is taken for right.
bool RegistryFile::addChecksums() {
    if (hasChecksums_)
        return true;
    if (!connection_.execute("BEGIN IMMEDIATE"))
        return false;
    // Another process may have been faster.
    const bool done = readNumber(connection_, "PRAGMA user_version") >= firstWithChecksums || fillChecksums();
    if (!done || !connection_.execute("COMMIT")) {
        if (connection_.inTransaction())
            (void)connection_.execute("ROLLBACK");
        return false;
    }
    hasChecksums_ = true;
    return prepareReading();
}

bool RegistryFile::fillChecksums() {
    if (!connection_.execute("ALTER TABLE value ADD COLUMN checksum INTEGER") || !connection_.execute(damagedSchema) ||
        !connection_.execute("PRAGMA user_version = " + std::to_string(currentVersion)))
        return false;
    struct Sum {
        std::int64_t place;
        std::int64_t checksum;
    };
    std::vector<Sum> sums;
    Statement rows(connection_, "SELECT name, type, data, key, place FROM value");
    Step step = rows.step();
    for (; step == Step::row; step = rows.step())
        sums.push_back({rows.integer(4), checksumOf(rows.integer(3), rows.text(0), rows.integer(1), rows.blob(2))});
    Statement update(connection_, "UPDATE value SET checksum = ?2 WHERE place = ?1");
    return step == Step::done && std::ranges::all_of(sums, [&update](const Sum& sum) {
               update.bind(1, sum.place);
               update.bind(2, sum.checksum);
               return update.run();
           });
}

bool RegistryFile::begin() {
    if (!open() || !makeWritable())
        return false;
    return connection_.execute("BEGIN IMMEDIATE") || failWithMessage();
}

void RegistryFile::beginWrites() {
    if (depth_++ == 0)
        failed_ = !begin();
}

bool RegistryFile::endWrites() {
    if (--depth_ > 0 || !connection_.inTransaction())
        return !failed_;
    if (!failed_ && connection_.execute("COMMIT"))
        return true;
    if (!failed_)
        failWithMessage();
    if (connection_.inTransaction() && !connection_.execute("ROLLBACK"))
        failWithMessage();
    return false;
}

// One change is a transaction of its own, or a part of the one that is open; after a failure none of that is kept.
template<class Change>
bool RegistryFile::write(Change change) {
    beginWrites();
    if (!failed_ && !change())
        failed_ = true;
    return endWrites();
}

bool RegistryFile::run(Statement& statement) {
    return statement.run() || failWithMessage();
}

std::optional<std::int64_t> RegistryFile::findKey(std::string_view path) {
    if (!open())
        return std::nullopt;
    const ResetGuard guard(findKey_);
    findKey_.bind(1, path);
    const Step step = findKey_.step();
    if (step == Step::failed)
        failWithMessage();
    return step == Step::row ? std::optional(findKey_.integer(0)) : std::nullopt;
}

bool RegistryFile::insertKeys(std::string_view path) {
    std::size_t end = 0;
    do {
        end = path.find('\\', end + 1);
        insertKey_.bind(1, path.substr(0, end));
        if (!run(insertKey_))
            return false;
    } while (end != std::string_view::npos);
    return true;
}

std::optional<std::int64_t> RegistryFile::createKey(std::string_view path) {
    if (const auto key = findKey(path))
        return key;
    if (!problem_.empty() || (!connection_.isOpen() && !makeFile()))
        return std::nullopt;
    if (!write([&] { return insertKeys(path); }))
        return std::nullopt;
    return findKey(path);
}

bool RegistryFile::removeKey(std::string_view path) {
    if (!open())
        return problem_.empty();
    return write([&] {
        const std::string prefix = below(path);
        removeValues_.bind(1, path);
        removeValues_.bind(2, prefix);
        removeKeys_.bind(1, path);
        removeKeys_.bind(2, prefix);
        removeAllDamaged_.bind(1, path);
        removeAllDamaged_.bind(2, prefix);
        return run(removeAllDamaged_) && run(removeValues_) && run(removeKeys_);
    });
}

std::optional<RegistryValue> RegistryFile::findValue(std::int64_t key, std::u16string_view name) {
    if (!open())
        return std::nullopt;
    const std::string utf8 = toUtf8(name);
    const ResetGuard guard(findValue_);
    findValue_.bind(1, key);
    findValue_.bind(2, utf8);
    const Step step = findValue_.step();
    if (step == Step::failed)
        failWithMessage();
    return step == Step::row ? readValue(findValue_, key) : std::nullopt;
}

std::optional<RegistryValue> RegistryFile::readValue(const Statement& row, std::int64_t key) {
    if (!hasChecksums_ || fitsChecksum(row, key))
        return readRow(row);
    fail(damagedText(row.text(0)));
    return std::nullopt;
}

std::vector<RegistryValue> RegistryFile::values(std::int64_t key) {
    if (!open())
        return {};
    std::vector<RegistryValue> rows;
    const ResetGuard guard(listValues_);
    listValues_.bind(1, key);
    Step step = listValues_.step();
    for (; step == Step::row; step = listValues_.step())
        if (auto value = readValue(listValues_, key))
            rows.push_back(std::move(*value));
    if (step == Step::done)
        return rows;
    failWithMessage();
    return {};
}

bool RegistryFile::keepDamagedAside(std::int64_t key, const std::string& name) {
    const ResetGuard guard(findValue_);
    findValue_.bind(1, key);
    findValue_.bind(2, name);
    const Step step = findValue_.step();
    if (step != Step::row || fitsChecksum(findValue_, key))
        return step != Step::failed || failWithMessage();
    keepDamaged_.bind(1, key);
    keepDamaged_.bind(2, name);
    return run(keepDamaged_);
}

bool RegistryFile::setValue(std::int64_t key, const RegistryValue& value) {
    return write([&] {
        const std::string name = toUtf8(value.name);
        const std::span<const std::byte> data(value.data);
        if (!keepDamagedAside(key, name))
            return false;
        setValue_.bind(1, key);
        setValue_.bind(2, name);
        setValue_.bind(3, static_cast<std::int64_t>(value.type));
        setValue_.bind(4, data);
        setValue_.bind(5, checksumOf(key, name, static_cast<std::int64_t>(value.type), data));
        if (!run(setValue_))
            return false;
        return sqlite3_changes(connection_.handle()) == 1 || fail("the key has been deleted");
    });
}

bool RegistryFile::removeValue(std::int64_t key, std::u16string_view name) {
    return write([&] {
        const std::string utf8 = toUtf8(name);
        removeValue_.bind(1, key);
        removeValue_.bind(2, utf8);
        removeDamaged_.bind(1, key);
        removeDamaged_.bind(2, utf8);
        return run(removeDamaged_) && run(removeValue_);
    });
}

} // namespace hourwright::platform::sqlite
