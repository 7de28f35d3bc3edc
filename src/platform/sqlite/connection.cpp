#include "platform/sqlite/connection.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sqlite3.h>

namespace hourwright::platform::sqlite {

PlatformError platformError(int resultCode) {
    switch (resultCode & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE: return PlatformError::none;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return PlatformError::locked;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH: return PlatformError::accessDenied;
    case SQLITE_FULL: return PlatformError::diskFull;
    case SQLITE_NOMEM: return PlatformError::outOfMemory;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: return PlatformError::fileCorrupt;
    case SQLITE_CANTOPEN: return PlatformError::openFailed;
    case SQLITE_IOERR:
        return resultCode == SQLITE_IOERR_READ || resultCode == SQLITE_IOERR_SHORT_READ ? PlatformError::readFault
                                                                                        : PlatformError::writeFault;
    default: return PlatformError::invalidParameter;
    }
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(Connection& connection, std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(connection.handle(), sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                       &statement, nullptr);
    handle_.reset(statement);
}

void Statement::bind(int parameter, std::int64_t value) {
    sqlite3_bind_int64(handle_.get(), parameter, value);
}

void Statement::bind(int parameter, std::string_view utf8) {
    // An empty view may carry a null pointer, which SQLite would take for NULL.
    const char* const data = utf8.empty() ? "" : utf8.data();
    sqlite3_bind_text64(handle_.get(), parameter, data, utf8.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void Statement::bind(int parameter, std::span<const std::byte> bytes) {
    if (bytes.empty())
        sqlite3_bind_zeroblob(handle_.get(), parameter, 0);
    else
        sqlite3_bind_blob64(handle_.get(), parameter, bytes.data(), bytes.size(), SQLITE_STATIC);
}

void Statement::bindNull(int parameter) {
    sqlite3_bind_null(handle_.get(), parameter);
}

Step Statement::step() {
    if (!handle_)
        return Step::failed;
    switch (sqlite3_step(handle_.get())) {
    case SQLITE_ROW: return Step::row;
    case SQLITE_DONE: return Step::done;
    default: return Step::failed;
    }
}

bool Statement::run() {
    Step result = step();
    while (result == Step::row)
        result = step();
    reset(); // leaves the connection's result code at that of a failed step
    return result == Step::done;
}

void Statement::reset() {
    if (handle_)
        sqlite3_reset(handle_.get());
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(handle_.get(), column);
}

std::string_view Statement::text(int column) const {
    const void* const data = sqlite3_column_text(handle_.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column));
    return {static_cast<const char*>(data), data == nullptr ? 0 : size};
}

std::span<const std::byte> Statement::blob(int column) const {
    const void* const data = sqlite3_column_blob(handle_.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column));
    return {static_cast<const std::byte*>(data), data == nullptr ? 0 : size};
}

int Statement::columnCount() const {
    return sqlite3_column_count(handle_.get());
}

namespace {

constexpr std::size_t headerSize = 100;
using HeaderBytes = std::array<unsigned char, headerSize>;

// Counting the library's memory takes a lock for every piece of it; nobody asks for the figures. To be called before
// the first connection of the process, later it changes nothing.
void forgoMemoryStatistics() {
    static const int result = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    static_cast<void>(result);
}

// Reads the first bytes through SQLite's own file layer: closing a descriptor of ours would drop the locks that other
// connections of this process hold on the file. No lock is taken and nothing is rolled back.
int readThroughSqlite(const std::filesystem::path& file, HeaderBytes& bytes) {
    forgoMemoryStatistics();
    sqlite3* connection = nullptr;
    int result = sqlite3_open_v2(file.c_str(), &connection, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_file* handle = nullptr;
    if (result == SQLITE_OK)
        result = sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &handle);
    if (result == SQLITE_OK && handle->pMethods != nullptr)
        result = handle->pMethods->xRead(handle, bytes.data(), static_cast<int>(bytes.size()), 0);
    sqlite3_close(connection);
    return result;
}

std::uint32_t bigEndian(const HeaderBytes& bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | bytes[offset + i];
    return value;
}

// True when the rollback journal beside a file says that the file was empty before: what stands in it was being written
// for the first time when the power failed, or is being written just now. SQLite makes it empty again when it opens it.
bool isBeingLaidOut(const std::filesystem::path& file) {
    constexpr std::array<unsigned char, 8> magic{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};
    constexpr std::size_t pagesBefore = 16; // the offset of a number of four bytes in the journal's header
    std::ifstream journal(file.native() + "-journal", std::ios::binary);
    HeaderBytes bytes{};
    journal.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return journal && std::equal(magic.begin(), magic.end(), bytes.begin()) && bigEndian(bytes, pagesBefore) == 0;
}

FileHeader::Kind foreignOrEmpty(const std::filesystem::path& file) {
    return isBeingLaidOut(file) ? FileHeader::Kind::empty : FileHeader::Kind::foreign;
}

} // namespace

FileHeader readFileHeader(const std::filesystem::path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return {.kind = FileHeader::Kind::missing};
    if (error || status.type() != std::filesystem::file_type::regular)
        return {.kind = FileHeader::Kind::unreadable};
    if (std::filesystem::file_size(file, error) == 0)
        return {.kind = FileHeader::Kind::empty};
    HeaderBytes bytes{};
    const int result = readThroughSqlite(file, bytes);
    if (result == SQLITE_IOERR_SHORT_READ)
        return {.kind = foreignOrEmpty(file)};
    if (result != SQLITE_OK)
        return {.kind = FileHeader::Kind::unreadable};
    constexpr std::string_view magic{"SQLite format 3", 16};
    if (!std::equal(magic.begin(), magic.end(), bytes.begin()))
        return {.kind = foreignOrEmpty(file)};
    // Offsets in SQLite's file header.
    return {.kind = FileHeader::Kind::sqlite,
            .applicationId = bigEndian(bytes, 68),
            .userVersion = bigEndian(bytes, 60),
            .changes = bigEndian(bytes, 24)};
}

void Connection::Closer::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

namespace {

struct Setting {
    int what;
    int value;
};

// A file may have come from anywhere. Nothing in its schema is carried out: triggers and views not at all, functions
// only when they can do no harm; and nothing may write around the rules of the file format.
constexpr std::array settings = {
    Setting{SQLITE_DBCONFIG_DEFENSIVE, 1},      Setting{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    Setting{SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, Setting{SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    Setting{SQLITE_DBCONFIG_ENABLE_FKEY, 0},    Setting{SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
    Setting{SQLITE_DBCONFIG_WRITABLE_SCHEMA, 0}};

// Far more than the program needs, and far less than what would exhaust a machine: a value or row of 64 MiB, a schema
// entry of 256 KiB. Nothing is ever attached.
constexpr std::array limits = {
    Setting{SQLITE_LIMIT_LENGTH, 64 << 20},      Setting{SQLITE_LIMIT_SQL_LENGTH, 256 << 10},
    Setting{SQLITE_LIMIT_EXPR_DEPTH, 100},       Setting{SQLITE_LIMIT_COMPOUND_SELECT, 10},
    Setting{SQLITE_LIMIT_VDBE_OP, 250'000},      Setting{SQLITE_LIMIT_FUNCTION_ARG, 20},
    Setting{SQLITE_LIMIT_ATTACHED, 0},           Setting{SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 1000},
    Setting{SQLITE_LIMIT_VARIABLE_NUMBER, 4000}, Setting{SQLITE_LIMIT_TRIGGER_DEPTH, 1},
    Setting{SQLITE_LIMIT_WORKER_THREADS, 0}};

void harden(sqlite3* connection) {
    for (const Setting& setting : settings)
        sqlite3_db_config(connection, setting.what, setting.value, nullptr);
    for (const Setting& limit : limits)
        sqlite3_limit(connection, limit.what, limit.value);
}

// Every byte that could mean something in such a name is written as its number.
std::string uriOf(const std::filesystem::path& file) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : file.native()) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/' ||
                           c == '.' || c == '_' || c == '-';
        if (plain)
            uri += c;
        else
            uri.append(1, '%').append(1, digits[byte >> 4U]).append(1, digits[byte & 15U]);
    }
    return uri;
}

} // namespace

Connection::Connection(const std::filesystem::path& file, std::chrono::milliseconds busyTimeout) {
    open(file.native(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, busyTimeout);
}

Connection Connection::asItLies(const std::filesystem::path& file) {
    Connection connection;
    connection.open(uriOf(file) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, {});
    return connection;
}

void Connection::open(const std::string& name, int flags, std::chrono::milliseconds busyTimeout) {
    forgoMemoryStatistics();
    sqlite3* connection = nullptr;
    const int always = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int result = sqlite3_open_v2(name.c_str(), &connection, flags | always, nullptr);
    handle_.reset(connection);
    open_ = result == SQLITE_OK;
    if (!open_)
        return;
    setBusyTimeout(busyTimeout);
    harden(connection);
    open_ =
        execute("PRAGMA synchronous=EXTRA; PRAGMA cell_size_check=ON; PRAGMA temp_store=MEMORY; PRAGMA mmap_size=0");
}

bool Connection::isReadOnly() const {
    return sqlite3_db_readonly(handle_.get(), "main") != 0;
}

bool Connection::hasMoved() const {
    int moved = 0;
    return sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0;
}

void Connection::setBusyTimeout(std::chrono::milliseconds time) {
    sqlite3_busy_timeout(handle_.get(), static_cast<int>(time.count()));
}

bool Connection::inTransaction() const {
    return handle_ && sqlite3_get_autocommit(handle_.get()) == 0;
}

bool Connection::execute(const std::string& sql) {
    return sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::int64_t Connection::changedRows() const {
    return sqlite3_changes(handle_.get());
}

int Connection::lastResult() const {
    return handle_ ? sqlite3_extended_errcode(handle_.get()) : SQLITE_CANTOPEN;
}

std::string Connection::message() const {
    return handle_ ? sqlite3_errmsg(handle_.get()) : "out of memory";
}

} // namespace hourwright::platform::sqlite
