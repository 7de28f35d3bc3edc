#include "exchange/csv_export.h"
#include "exchange/other_exports.h"
#include "exchange/xml_export.h"
#include "platform/cancellable_files.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/posix_files.h"
#include "store/save.h"
#include "support/store_fixture.h"

#include <atomic>
#include <fstream>
#include <sstream>
#include <thread>

namespace hourwright {
namespace {

constexpr std::uint64_t ticksPerDay = std::uint64_t{24} * 3600 * 10'000'000;
constexpr std::uint64_t firstDay = 150'000 * ticksPerDay;

/// What a thread works with: a connection, a registry and locales of its own, as an export of the window has them.
struct Worker {
    explicit Worker(const std::filesystem::path& file)
        : objects(platform::openSqliteObjectStore(file, {.busyTimeout = std::chrono::seconds(60)}).store),
          mutex(platform::makeNamedMutex(file.parent_path(), std::string(store::clientIdMutexName))),
          stores(*objects, *mutex, registry), locale(platform::makeIcuLocale("de_DE")), ready(stores.open()) {}

    test::MemoryRegistry registry;
    std::unique_ptr<platform::ObjectStore> objects;
    std::unique_ptr<platform::NamedMutex> mutex;
    store::Stores stores;
    std::unique_ptr<platform::Locale> locale;
    bool ready;
};

store::TimeEntry entryOf(std::uint64_t day, std::u16string client) {
    store::TimeEntry entry;
    entry.date = {firstDay + day * ticksPerDay};
    entry.client = std::move(client);
    entry.task = u"Überprüfung";
    return entry;
}

/// Adds pairs of entries, each pair in a transaction of its own; false at the first failure.
bool addPairs(Worker& worker, int pairs, int from = 0) {
    for (int i = from; i < from + pairs; ++i) {
        const auto transaction = worker.objects->begin();
        if (!transaction)
            return false;
        for (const auto* client : {u"left", u"right"}) {
            store::TimeEntry entry = entryOf(static_cast<std::uint64_t>(i), client);
            if (!store::saveTimeEntry(*transaction, worker.stores, entry))
                return false;
        }
        if (!transaction->commit())
            return false;
    }
    return true;
}

std::uint64_t countEntries(Worker& worker) {
    store::DateWalk walk(worker.stores.entries(), {});
    store::TimeEntry entry;
    std::uint64_t count = 0;
    while (walk.next(entry) == store::ReadResult::ok)
        ++count;
    return count;
}

class StoresInThreads : public test::StoreFixture {
protected:
    [[nodiscard]] std::filesystem::path out(const std::string& name) const { return file().parent_path() / name; }
};

TEST_F(StoresInThreads, ReadersSeeWholeTransactionsWhileWritersWork) {
    constexpr int writers = 3;
    constexpr int readers = 2;
    constexpr int pairs = 12;
    std::atomic<int> writing = writers;
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < writers; ++i)
        threads.emplace_back([&] {
            Worker worker(file());
            failures += worker.ready && addPairs(worker, pairs) ? 0 : 1;
            --writing;
        });
    for (int i = 0; i < readers; ++i)
        threads.emplace_back([&] {
            Worker worker(file());
            std::uint64_t before = 0;
            do {
                const std::uint64_t seen = countEntries(worker);
                failures += seen % 2 == 0 && seen >= before ? 0 : 1;
                before = seen;
            } while (writing > 0);
        });
    for (std::thread& thread : threads)
        thread.join();
    Worker last(file());
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(countEntries(last), std::uint64_t{2} * pairs * writers);
}

const exchange::TimeEntryFilter acceptAll = [](const store::TimeEntry&) { return true; };

// What is exported; beyond it others may write.
constexpr int lastDay = 1000;
const store::DateRange exported{.after = {}, .last = platform::FileTime{firstDay + lastDay * ticksPerDay}};

using Target = exchange::ExportTarget;

exchange::ExportResult writeCsv(Worker& worker, const Target& target) {
    return exchange::exportTimeEntries(worker.stores.entries(), exported, acceptAll, {}, target);
}

exchange::ExportResult writeXml(Worker& worker, const Target& target) {
    return exchange::exportXml(worker.stores.entries(), exported, acceptAll, {}, target);
}

exchange::ExportResult writeSpreadsheet(Worker& worker, const Target& target) {
    const exchange::SpreadsheetOptions options;
    return exchange::exportSpreadsheet(worker.stores.entries(), exported, acceptAll, options, target);
}

exchange::ExportResult writeJson(Worker& worker, const Target& target) {
    const billing::TimeRules rules;
    return exchange::exportJson(worker.stores.entries(), exported, acceptAll, rules, target);
}

struct Export {
    std::string name;
    exchange::ExportResult (*run)(Worker&, const Target&);
};

const std::vector<Export> exports = {
    {"csv", writeCsv}, {"xml", writeXml}, {"spreadsheet", writeSpreadsheet}, {"json", writeJson}};

std::string contentOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

// Each export writes twice: alone, and while the others and a writer beyond the exported range are at work.
TEST_F(StoresInThreads, ExportsBesideEachOtherWriteWhatTheyWriteAlone) {
    Worker filler(file());
    ASSERT_TRUE(addPairs(filler, 40));
    std::vector<std::string> alone;
    for (const auto& [name, run] : exports) {
        platform::PosixFiles files;
        ASSERT_TRUE(run(filler, {files, out(name), *filler.locale}).ok()) << name;
        alone.push_back(contentOf(out(name)));
    }
    std::vector<std::thread> threads;
    std::atomic<int> failures = 0;
    for (const auto& [name, run] : exports)
        threads.emplace_back([&, &name = name, &run = run] {
            Worker worker(file());
            platform::PosixFiles files;
            failures += run(worker, {files, out(name), *worker.locale}).ok() ? 0 : 1;
        });
    threads.emplace_back([&] { failures += addPairs(filler, 5, lastDay + 1) ? 0 : 1; });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    for (std::size_t i = 0; i < exports.size(); ++i)
        EXPECT_EQ(contentOf(out(exports[i].name)), alone[i]) << exports[i].name;
}

TEST_F(StoresInThreads, AnExportEndsWhenAnotherThreadCancelsIt) {
    Worker filler(file());
    ASSERT_TRUE(addPairs(filler, 20));
    for (const auto& [name, run] : exports) {
        std::atomic<bool> cancelled = false;
        std::atomic<bool> started = false;
        exchange::ExportResult result;
        std::thread exporter([&, &run = run] {
            Worker worker(file());
            platform::PosixFiles files;
            platform::CancellableFiles cancellable(files, cancelled);
            started = true;
            while (result.ok())
                result = run(worker, {cancellable, out("cancelled"), *worker.locale});
        });
        while (!started)
            std::this_thread::yield();
        std::jthread writer([&] { addPairs(filler, 3); });
        cancelled = true;
        exporter.join();
        EXPECT_EQ(result.status, exchange::ExportStatus::writeFailed) << name;
    }
}

} // namespace
} // namespace hourwright
