#include "platform/sqlite/database_copy.h"

#include "platform/posix/private_file.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/store_check.h"
#include "platform/sqlite/store_file.h"
#include "platform/sqlite/volume.h"

#include <limits>
#include <memory>
#include <sqlite3.h>

namespace hourwright::platform::sqlite {

namespace {

constexpr std::chrono::milliseconds busyTimeout{5000};
constexpr int pagesAtOnce = 4096; // a few hundredths of a second
constexpr int patience = 4;       // beginnings from anew because others wrote
constexpr int operationsBetweenLooks = 100'000;

struct EndBackup {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

FileOutcome failed(PlatformError error, std::string reason) {
    const bool damaged = error == PlatformError::fileCorrupt;
    return {.outcome = damaged ? CopyOutcome::sourceDamaged : CopyOutcome::failed,
            .error = error,
            .reason = std::move(reason)};
}

FileOutcome failed(const Connection& connection) {
    return failed(connection.lastError(), connection.message());
}

// A copy that others keep disturbing is finished in one go, which they wait for.
FileOutcome copyPages(sqlite3_backup* backup, const KeepGoing& keepGoing) {
    int before = std::numeric_limits<int>::max();
    int restarts = 0;
    int refusals = 0;
    while (keepGoing()) {
        const int result = sqlite3_backup_step(backup, restarts < patience ? pagesAtOnce : -1);
        if (result == SQLITE_DONE)
            return {};
        if (result == SQLITE_BUSY && ++refusals < patience)
            continue; // each has waited for the busy time-out
        if (result != SQLITE_OK)
            return failed(platformError(result), sqlite3_errstr(result));
        const int remaining = sqlite3_backup_remaining(backup);
        restarts += remaining >= before ? 1 : 0;
        before = remaining;
    }
    return {.outcome = CopyOutcome::cancelled, .reason = {}};
}

int stopWanted(void* keepGoing) {
    return (*static_cast<const KeepGoing*>(keepGoing))() ? 0 : 1;
}

std::uint64_t countRecords(Volume& volume, const DatabaseInfo& database) {
    Statement row(volume.connection(), "SELECT count(*) FROM " + tableName(database.id));
    return row.step() == Step::row ? static_cast<std::uint64_t>(row.integer(0)) : 0;
}

} // namespace

FileOutcome copyDatabase(const std::filesystem::path& from, const std::filesystem::path& to,
                         const KeepGoing& keepGoing) {
    const PlatformError created = createPrivateFile(to);
    if (created != PlatformError::none)
        return failed(created, "The file of the copy cannot be made.");
    Connection source(from, busyTimeout);
    Connection target(to, busyTimeout);
    if (!source.isOpen())
        return failed(source);
    // Nobody else knows the file yet; it is synchronised as a whole later, while nobody has to wait for it.
    if (!target.isOpen() || !target.execute("PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY"))
        return failed(target);
    const std::unique_ptr<sqlite3_backup, EndBackup> backup(
        sqlite3_backup_init(target.handle(), "main", source.handle(), "main"));
    return backup ? copyPages(backup.get(), keepGoing) : failed(target);
}

namespace {

FileOutcome checkOpened(Connection connection, const KeepGoing& keepGoing, std::uint64_t& records) {
    if (const auto problem = prepareStoreFile(connection))
        return failed(problem->error, problem->reason);
    sqlite3_progress_handler(connection.handle(), operationsBetweenLooks, stopWanted,
                             const_cast<KeepGoing*>(&keepGoing));
    Volume volume(std::move(connection), {});
    std::string finding;
    const auto databases = volume.databases({});
    const bool sound = checkStore(volume, databases, [&finding](std::string_view text) {
        if (finding.empty())
            finding = text;
    });
    if (!keepGoing())
        return {.outcome = CopyOutcome::cancelled, .reason = {}};
    if (!sound)
        return failed(PlatformError::fileCorrupt, finding);
    records = 0;
    for (const DatabaseInfo& database : databases)
        records += countRecords(volume, database);
    return {};
}

} // namespace

FileOutcome checkStoreFile(const std::filesystem::path& file, const KeepGoing& keepGoing, std::uint64_t& records) {
    if (const auto problem = inspectStoreFile(file))
        return failed(problem->error, problem->reason);
    return checkOpened(Connection(file, busyTimeout), keepGoing, records);
}

FileOutcome checkStoredCopy(const std::filesystem::path& file, const KeepGoing& keepGoing) {
    if (const auto problem = inspectStoreFile(file))
        return failed(problem->error, problem->reason);
    std::uint64_t records = 0;
    return checkOpened(Connection::asItLies(file), keepGoing, records);
}

} // namespace hourwright::platform::sqlite
