#include "ratios/walk.h"

#include "platform/sqlite/sqlite_object_store.h"
#include "platform/utf.h"
#include "ratios/report.h"
#include "store/date_walk.h"

#include <cstdio>
#include <sqlite3.h>

namespace hourwright::bench {

namespace {

using store::TimeEntry;

// Keeps the work from being optimised away, and shows that both sides saw the same.
struct Sum {
    std::uint64_t entries = 0;
    std::uint64_t units = 0;
    std::int64_t numbers = 0;

    void add(const TimeEntry& entry) {
        ++entries;
        units += entry.client.size() + entry.project.size() + entry.phase.size() + entry.task.size() +
                 entry.currency.size() + entry.billTo.size() + entry.custom1.size() + entry.custom2.size() +
                 entry.custom3.size() + entry.note.size();
        numbers += entry.duration + entry.rate + entry.breakTime + entry.flags + static_cast<int>(entry.status);
    }
    friend bool operator==(const Sum&, const Sum&) = default;
};

Sum walkOurs(store::RecordStore& entries) {
    Sum sum;
    store::DateWalk walk(entries, {});
    TimeEntry entry;
    while (walk.next(entry) == store::ReadResult::ok)
        sum.add(entry);
    return sum;
}

void takeText(sqlite3_stmt* row, int column, std::u16string& out) {
    const auto* const data = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    out.resize(size);
    if (size != 0)
        out.resize(static_cast<std::size_t>(platform::decodeUtf8({data, size}, out.data()) - out.data()));
}

void takeRow(sqlite3_stmt* row, TimeEntry& entry) {
    const auto number = [row](int column) { return sqlite3_column_int64(row, column); };
    entry.id = static_cast<store::RecordId>(number(0));
    entry.date.ticks = static_cast<std::uint64_t>(number(1));
    takeText(row, 2, entry.client);
    takeText(row, 3, entry.project);
    takeText(row, 4, entry.phase);
    takeText(row, 5, entry.task);
    entry.duration = static_cast<std::int32_t>(number(6));
    entry.status = static_cast<store::EntryStatus>(number(7));
    takeText(row, 8, entry.currency);
    entry.rate = static_cast<std::int32_t>(number(9));
    entry.paidDate.ticks = static_cast<std::uint64_t>(number(10));
    takeText(row, 11, entry.billTo);
    takeText(row, 12, entry.custom1);
    takeText(row, 13, entry.custom2);
    takeText(row, 14, entry.custom3);
    entry.rateType = static_cast<store::RateType>(number(15));
    entry.modified.ticks = static_cast<std::uint64_t>(number(16));
    entry.breakTime = static_cast<std::int32_t>(number(17));
    entry.flags = static_cast<std::uint16_t>(number(18));
    const auto* const note = static_cast<const std::byte*>(sqlite3_column_blob(row, 19));
    entry.note.assign(note, note + sqlite3_column_bytes(row, 19));
}

Sum walkRaw(sqlite3* connection) {
    constexpr const char* sql =
        "SELECT id, p1001_filetime, p1002_text, p1003_text, p1004_text, p1005_text, p1006_ui2, p1019_ui2, p1007_text,"
        " p1008_ui4, p1020_filetime, p1014_text, p1015_text, p1016_text, p1017_text, p1018_ui2, p1021_filetime,"
        " p1023_ui2, p1022_ui2, p1012_blob FROM records_1 ORDER BY p1001_filetime, id";
    Sum sum;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr);
    TimeEntry entry;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        takeRow(statement, entry);
        sum.add(entry);
    }
    sqlite3_finalize(statement);
    return sum;
}

} // namespace

void measureWalk(const std::filesystem::path& storeFile) {
    auto opened = platform::openSqliteObjectStore(storeFile);
    sqlite3* connection = nullptr;
    if (!opened.store || sqlite3_open(storeFile.c_str(), &connection) != SQLITE_OK)
        return;
    store::RecordStore entries(*opened.store, store::DatabaseKind::data1);
    if (!entries.open())
        return;
    Sum ours;
    Sum raw;
    const Pair pair = bestInTurns(
        5, [&] { return timed([&] { ours = walkOurs(entries); }); },
        [&] { return timed([&] { raw = walkRaw(connection); }); });
    if (ours == raw)
        printRow("walk over all entries / SQLite cursor", pair, 1.7);
    else
        std::printf("walk over all entries: the two sides differ\n");
    sqlite3_close(connection);
}

} // namespace hourwright::bench
