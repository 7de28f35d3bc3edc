#pragma once

#include "demo_home.h"
#include "peak_memory.h"

#include <cstdlib>
#include <filesystem>

namespace hourwright::bench {

/// A store with made-up entries that is read only: the file that HOURWRIGHT_BENCH_STORE names, else one of 20,000
/// entries made for this run.
class StoreFile {
public:
    StoreFile() {
        if (const char* const given = std::getenv("HOURWRIGHT_BENCH_STORE")) {
            path_ = given;
            return;
        }
        made_ = std::make_unique<Home>();
        if (!made_->fill(20'000))
            std::abort();
        path_ = made_->directory.path() / "bench.db";
    }

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::unique_ptr<Home> made_;
    std::filesystem::path path_;
};

/// The one file that all benchmarks of this run read.
inline const std::filesystem::path& storeFile() {
    static const StoreFile file;
    return file.path();
}

/// The entries of that file, opened as the program does.
class OpenEntries {
public:
    OpenEntries() {
        if (!entries_.open())
            std::abort();
    }

    [[nodiscard]] store::RecordStore& operator*() { return entries_; }

private:
    std::unique_ptr<platform::ObjectStore> objects_ = platform::openSqliteObjectStore(storeFile()).store;
    store::RecordStore entries_{*objects_, store::DatabaseKind::data1};
};

/// The entry in the middle of that file.
inline store::TimeEntry middleEntry() {
    OpenEntries entries;
    const std::uint64_t half = (*entries).recordCount() / 2;
    (*entries).seek(platform::Seek::toBeginning(static_cast<std::int32_t>(half)));
    store::TimeEntry entry;
    if (readTimeEntry(*entries, entry) != store::ReadResult::ok)
        std::abort();
    return entry;
}

} // namespace hourwright::bench
