#include "platform/sqlite/sqlite_store_copies.h"

#include "platform/posix/durable_files.h"
#include "platform/posix/user_directories.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/copy_folder.h"
#include "platform/sqlite/exclusive_file.h"
#include "platform/sqlite/file_replacement.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace hourwright::platform {

namespace {

namespace fs = std::filesystem;
using namespace sqlite;

constexpr const char* unfinishedName = ".new";
constexpr const char* removedName = ".gone";
constexpr std::uint64_t spareBytes = std::uint64_t{32} << 20;
constexpr unsigned mostNames = 1000;
constexpr std::chrono::milliseconds patience{30'000};
constexpr std::chrono::milliseconds pause{50};

FileOutcome failed(PlatformError error, std::string reason) {
    return {.outcome = CopyOutcome::failed, .error = error, .reason = std::move(reason)};
}

FileStamp stampOf(const fs::path& file) {
    const FileHeader header = readFileHeader(file);
    std::error_code error;
    const auto size = fs::file_size(file, error);
    const auto time = error ? fs::file_time_type{} : fs::last_write_time(file, error);
    if (error || header.kind != FileHeader::Kind::sqlite)
        return {};
    return {std::to_string(header.changes) + ' ' + std::to_string(size) + ' ' +
            std::to_string(time.time_since_epoch().count())};
}

RestoredCopy notRestored(RestoreOutcome outcome, PlatformError error) {
    return {.outcome = outcome, .error = error, .kept = {}};
}

// The copy of a copy that is to take the file's place.
fs::path preparedFor(const fs::path& target) {
    return fs::path(target).concat(".restoring");
}

// What a program left that was killed while it restored a copy; it held the folder of the copies as well.
void clearPrepared(const fs::path& target) {
    std::error_code ignored;
    fs::remove(preparedFor(target), ignored);
}

RestoredCopy putInPlace(const fs::path& copy, CopyPart part, const fs::path& target, const SystemTime& now) {
    const fs::path prepared = preparedFor(target);
    RestoredCopy result = notRestored(RestoreOutcome::failed, fetchFromCopy(copy, part, prepared));
    if (result.error == PlatformError::fileCorrupt)
        result.outcome = RestoreOutcome::copyDamaged;
    if (result.error == PlatformError::none) {
        const ExclusiveFile held(target);
        if (held.error() == PlatformError::none)
            result = replaceDatabase(prepared, target, now);
        else
            result = notRestored(held.error() == PlatformError::locked ? RestoreOutcome::inUse : RestoreOutcome::failed,
                                 held.error());
    }
    if (result.outcome != RestoreOutcome::done)
        clearPrepared(target);
    return result;
}

class SqliteStoreCopies final : public StoreCopies {
public:
    explicit SqliteStoreCopies(StoreCopyPlaces places) : places_(std::move(places)) {}

    [[nodiscard]] const fs::path& folder() const override { return places_.copies; }

    [[nodiscard]] SourceStamps present() override {
        return {.records = stampOf(places_.records), .settings = stampOf(places_.settings)};
    }

    [[nodiscard]] std::vector<StoreCopy> list() override {
        std::vector<StoreCopy> copies;
        for (const fs::path& folder : foldersOfCopies())
            if (auto copy = readCopyFolder(folder))
                copies.push_back(std::move(*copy));
        std::ranges::sort(copies, isNewer);
        return copies;
    }

    [[nodiscard]] std::vector<StoreCopy> unreadable() override {
        std::vector<StoreCopy> copies;
        for (const fs::path& folder : foldersOfCopies())
            if (!readCopyFolder(folder))
                copies.push_back({.name = folder.filename().string(),
                                  .time = timeInCopyName(folder.filename().string()).value_or(SystemTime{}),
                                  .source = {}});
        std::ranges::sort(copies, isNewer);
        return copies;
    }

    [[nodiscard]] MadeCopy make(const SystemTime& now, const KeepGoing& keepGoing) override {
        MadeCopy made{.reason = {}, .copy = {.name = {}, .time = now, .source = present()}};
        const FileHeader::Kind kind = readFileHeader(places_.records).kind;
        std::optional<FolderLock> lock;
        FileOutcome outcome;
        if (kind == FileHeader::Kind::missing || kind == FileHeader::Kind::empty)
            outcome.outcome = CopyOutcome::noSource;
        else
            outcome = enter(lock, keepGoing);
        if (outcome.outcome == CopyOutcome::done)
            outcome = fill(made.copy, keepGoing);
        if (outcome.outcome == CopyOutcome::done)
            outcome = publish(made.copy);
        if (lock && outcome.outcome != CopyOutcome::done)
            clear(unfinishedName);
        made.outcome = outcome.outcome;
        made.error = outcome.error;
        made.reason = std::move(outcome.reason);
        return made;
    }

    [[nodiscard]] CopyHealth verify(const StoreCopy& copy, const KeepGoing& keepGoing) override {
        return verifyCopyFolder(places_.copies / copy.name, keepGoing);
    }

    bool remove(const StoreCopy& copy) override {
        PlatformError error = PlatformError::none;
        const auto lock = FolderLock::take(places_.copies, error);
        if (!lock || !timeInCopyName(copy.name))
            return false;
        clear(removedName);
        // What is left after a kill has no copy's name any more.
        return renameFile(places_.copies / copy.name, places_.copies / removedName) == PlatformError::none &&
               clear(removedName);
    }

    [[nodiscard]] RestoredCopy restore(const StoreCopy& copy, CopyPart part, const SystemTime& now) override {
        PlatformError error = PlatformError::none;
        const auto lock = FolderLock::take(places_.copies, error);
        if (!lock && error == PlatformError::locked)
            return notRestored(RestoreOutcome::inUse, error);
        const fs::path folder = places_.copies / copy.name;
        if (!copyHas(folder, part) || verifyCopyFolder(folder, [] { return true; }) != CopyHealth::sound)
            return notRestored(RestoreOutcome::copyDamaged, PlatformError::fileCorrupt);
        return putInPlace(folder, part, part == CopyPart::records ? places_.records : places_.settings, now);
    }

private:
    // What has the name of a copy, whatever it is.
    std::vector<fs::path> foldersOfCopies() {
        std::vector<fs::path> folders;
        std::error_code error;
        for (fs::directory_iterator entry(places_.copies, error), end; !error && entry != end; entry.increment(error))
            if (timeInCopyName(entry->path().filename().string()))
                folders.push_back(entry->path());
        return folders;
    }

    // Makes the folder and holds it, once other programs have let go of it.
    FileOutcome enter(std::optional<FolderLock>& lock, const KeepGoing& keepGoing) {
        PlatformError error = makePrivateDirectory(places_.copies, Parents::create);
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (error == PlatformError::none || error == PlatformError::locked) {
            if (auto taken = FolderLock::take(places_.copies, error)) {
                lock.emplace(std::move(*taken));
                return {};
            }
            if (!keepGoing())
                return {.outcome = CopyOutcome::cancelled, .reason = {}};
            if (error == PlatformError::locked && std::chrono::steady_clock::now() > deadline)
                return {.outcome = CopyOutcome::busy, .error = error, .reason = "Another program is at the copies."};
            std::this_thread::sleep_for(pause);
        }
        return notWritable(error);
    }

    FileOutcome notWritable(PlatformError error) {
        return failed(error, "The folder of the copies cannot be written: " + places_.copies.string());
    }

    bool clear(const char* name) {
        std::error_code error;
        fs::remove_all(places_.copies / name, error);
        return !error;
    }

    // A disk is not filled up for the sake of a copy: the records themselves need the room more.
    bool hasRoom() {
        std::error_code error;
        const auto needed = fs::file_size(places_.records, error) + spareBytes;
        const auto space = fs::space(places_.copies, error);
        return error || space.available >= needed;
    }

    FileOutcome fill(StoreCopy& copy, const KeepGoing& keepGoing) {
        clear(unfinishedName);
        clear(removedName);
        clearPrepared(places_.records);
        clearPrepared(places_.settings);
        if (!hasRoom())
            return failed(PlatformError::diskFull, "There is not enough space left for a copy.");
        const fs::path folder = places_.copies / unfinishedName;
        if (const auto error = makePrivateDirectory(folder, Parents::mustExist); error != PlatformError::none)
            return notWritable(error);
        return fillCopyFolder(copy, folder, places_.records, places_.settings, keepGoing);
    }

    FileOutcome publish(StoreCopy& copy) {
        PlatformError error = PlatformError::alreadyExists;
        for (unsigned ordinal = 1; ordinal < mostNames; ++ordinal) {
            copy.name = copyNameAt(copy.time, ordinal);
            std::error_code ignored;
            if (fs::exists(fs::symlink_status(places_.copies / copy.name, ignored)))
                continue;
            error = renameFile(places_.copies / unfinishedName, places_.copies / copy.name);
            break;
        }
        if (error == PlatformError::none)
            error = syncFolder(places_.copies);
        return error == PlatformError::none ? FileOutcome{} : notWritable(error);
    }

    StoreCopyPlaces places_;
};

} // namespace

StoreCopyPlaces copyPlaces(const Directories& directories) {
    return {.records = directories.recordsFile(),
            .settings = directories.settingsFile(),
            .copies = directories.state / "copies"};
}

std::unique_ptr<StoreCopies> openStoreCopies(const StoreCopyPlaces& places) {
    return std::make_unique<SqliteStoreCopies>(places);
}

} // namespace hourwright::platform
