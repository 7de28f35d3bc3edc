#include "platform/sqlite/exclusive_file.h"

#include "platform/sqlite/connection.h"

#include <chrono>
#include <sqlite3.h>
#include <thread>

namespace hourwright::platform::sqlite {

namespace {

constexpr std::chrono::milliseconds patience{2000};
constexpr std::chrono::milliseconds shortPatience{200};
constexpr std::chrono::milliseconds pause{50};

// Reading is what makes SQLite take back a transaction that was cut short.
void takeBackUnfinished(const std::filesystem::path& file) {
    Connection connection(file, shortPatience);
    if (connection.isOpen())
        (void)connection.execute("SELECT count(*) FROM sqlite_schema");
}

sqlite3_file* fileOf(sqlite3* connection) {
    sqlite3_file* file = nullptr;
    if (connection != nullptr)
        sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return file != nullptr && file->pMethods != nullptr ? file : nullptr;
}

} // namespace

// The locks are taken in SQLite's own file layer: BEGIN EXCLUSIVE would have to read the file, and a descriptor of ours
// would not exclude the connections of this process.
ExclusiveFile::ExclusiveFile(const std::filesystem::path& file) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) // nothing there, or nothing that a program could use
        return;
    takeBackUnfinished(file);
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(file.c_str(), &connection_, flags, nullptr) != SQLITE_OK || fileOf(connection_) == nullptr ||
        sqlite3_db_readonly(connection_, "main") != 0) {
        error_ = PlatformError::accessDenied;
        return;
    }
    const auto deadline = std::chrono::steady_clock::now() + patience;
    int result = lock();
    while (result == SQLITE_BUSY && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(pause);
        result = lock();
    }
    error_ = platformError(result);
}

int ExclusiveFile::lock() {
    sqlite3_file* const file = fileOf(connection_);
    int result = file->pMethods->xLock(file, SQLITE_LOCK_SHARED);
    if (result == SQLITE_OK)
        result = file->pMethods->xLock(file, SQLITE_LOCK_EXCLUSIVE);
    if (result != SQLITE_OK)
        file->pMethods->xUnlock(file, SQLITE_LOCK_NONE);
    return result;
}

ExclusiveFile::~ExclusiveFile() {
    if (sqlite3_file* const file = fileOf(connection_))
        file->pMethods->xUnlock(file, SQLITE_LOCK_NONE);
    sqlite3_close(connection_);
}

} // namespace hourwright::platform::sqlite
