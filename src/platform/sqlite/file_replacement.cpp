#include "platform/sqlite/file_replacement.h"

#include "platform/posix/durable_files.h"

#include <array>

namespace hourwright::platform::sqlite {

namespace {

namespace fs = std::filesystem;

constexpr std::array companions = {"-journal", "-wal", "-shm"};
constexpr unsigned mostNames = 1000;

fs::path with(const fs::path& file, const std::string& ending) {
    return fs::path(file).concat(ending);
}

bool isThere(const fs::path& file) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(file, ignored));
}

// Gives the database a second name. Where the file system has no second names it is renamed, and its place is empty
// for a moment.
PlatformError nameAside(const fs::path& database, const SystemTime& now, fs::path& kept) {
    PlatformError error = PlatformError::alreadyExists;
    for (unsigned ordinal = 1; error == PlatformError::alreadyExists && ordinal < mostNames; ++ordinal) {
        kept = with(database, ".replaced-" + copyNameAt(now, ordinal));
        error = linkFile(database, kept);
    }
    if (error == PlatformError::none || error == PlatformError::alreadyExists || isThere(kept))
        return error;
    return renameFile(database, kept);
}

PlatformError moveCompanions(const fs::path& from, const fs::path& to) {
    for (const char* const ending : companions)
        if (isThere(with(from, ending)))
            if (const PlatformError error = renameFile(with(from, ending), with(to, ending));
                error != PlatformError::none)
                return error;
    return PlatformError::none;
}

// Back to how it was, as far as that can be done.
void takeBack(const fs::path& database, const fs::path& kept) {
    (void)moveCompanions(kept, database);
    std::error_code ignored;
    if (isThere(database))
        fs::remove(kept, ignored);
    else
        (void)renameFile(kept, database);
}

RestoredCopy failed(PlatformError error) {
    return {.outcome = RestoreOutcome::failed, .error = error, .kept = {}};
}

} // namespace

RestoredCopy replaceDatabase(const fs::path& replacement, const fs::path& database, const SystemTime& now) {
    const fs::path folder = database.parent_path();
    fs::path kept;
    if (isThere(database)) {
        if (const PlatformError error = nameAside(database, now, kept); error != PlatformError::none)
            return failed(error);
        PlatformError error = moveCompanions(database, kept);
        if (error == PlatformError::none)
            error = syncFolder(folder);
        if (error != PlatformError::none) {
            takeBack(database, kept);
            return failed(error);
        }
    } else if (const PlatformError error = moveCompanions(database, with(database, ".replaced-" + copyNameAt(now)));
               error != PlatformError::none) {
        return failed(error);
    }
    if (const PlatformError error = renameFile(replacement, database); error != PlatformError::none) {
        if (!kept.empty())
            takeBack(database, kept);
        return failed(error);
    }
    return {.outcome = RestoreOutcome::done, .error = syncFolder(folder), .kept = kept};
}

} // namespace hourwright::platform::sqlite
