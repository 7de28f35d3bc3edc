#include "raw_rows.h"

#include "platform/utf.h"

#include <string>

namespace hourwright::bench {

namespace {

using store::TimeEntry;

void takeText(sqlite3_stmt* row, int column, std::u16string& out) {
    const auto* const data = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    out.resize(size);
    if (size != 0)
        out.resize(static_cast<std::size_t>(platform::decodeUtf8({data, size}, out.data()) - out.data()));
}

// Binds what a record has and NULL for what it has not, as the store keeps it.
class RowBinder {
public:
    explicit RowBinder(sqlite3_stmt* row) : row_(row) {}

    void number(std::int64_t value) { sqlite3_bind_int64(row_, ++column_, value); }
    void numberUnlessZero(std::int64_t value) { value != 0 ? number(value) : none(); }
    void text(const std::u16string& value) {
        if (value.empty())
            return none();
        const std::string utf8 = platform::toUtf8(value);
        sqlite3_bind_text(row_, ++column_, utf8.data(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    }
    void bytes(const std::vector<std::byte>& value) {
        if (value.empty())
            return none();
        sqlite3_bind_blob(row_, ++column_, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
    }

private:
    void none() { sqlite3_bind_null(row_, ++column_); }

    sqlite3_stmt* row_;
    int column_ = 0;
};

void bindRow(sqlite3_stmt* row, const TimeEntry& entry) {
    RowBinder bind(row);
    bind.number(static_cast<std::int64_t>(entry.date.ticks));
    for (const auto* text : {&entry.client, &entry.project, &entry.phase, &entry.task, &entry.currency, &entry.billTo,
                             &entry.custom1, &entry.custom2, &entry.custom3})
        bind.text(*text);
    bind.numberUnlessZero(entry.duration);
    bind.numberUnlessZero(static_cast<int>(entry.status));
    bind.numberUnlessZero(entry.rate);
    bind.numberUnlessZero(static_cast<std::int64_t>(entry.paidDate.ticks));
    bind.numberUnlessZero(static_cast<int>(entry.rateType));
    bind.number(static_cast<std::int64_t>(entry.modified.ticks));
    bind.numberUnlessZero(entry.breakTime);
    bind.number(entry.flags);
    bind.bytes(entry.note);
}

// Shape and checksum are numbers like others here.
constexpr const char* insertSql =
    "INSERT INTO records_1(shape, checksum, p1001_filetime, p1002_text, p1003_text, p1004_text, p1005_text,"
    " p1007_text, p1014_text, p1015_text, p1016_text, p1017_text, p1006_ui2, p1019_ui2, p1008_ui4, p1020_filetime,"
    " p1018_ui2, p1021_filetime, p1023_ui2, p1022_ui2, p1012_blob)"
    " VALUES (1, 2864434397, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

constexpr const char* selectSql =
    "SELECT id, p1001_filetime, p1002_text, p1003_text, p1004_text, p1005_text, p1006_ui2, p1019_ui2, p1007_text,"
    " p1008_ui4, p1020_filetime, p1014_text, p1015_text, p1016_text, p1017_text, p1018_ui2, p1021_filetime,"
    " p1023_ui2, p1022_ui2, p1012_blob FROM records_1 WHERE ";

sqlite3* openFile(const std::filesystem::path& file) {
    sqlite3* connection = nullptr;
    sqlite3_open(file.c_str(), &connection);
    return connection;
}

} // namespace

RawStore::RawStore(const std::filesystem::path& file) : connection_(openFile(file)) {
    static_cast<void>(execute("PRAGMA synchronous=EXTRA"));
}

bool RawStore::execute(const char* sql) {
    return sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool RawStore::insert(std::span<const TimeEntry> entries, std::size_t count) {
    sqlite3_stmt* prepared = nullptr;
    if (!execute("BEGIN IMMEDIATE") || sqlite3_prepare_v2(connection_.get(), insertSql, -1, &prepared, nullptr) != 0)
        return false;
    const std::unique_ptr<sqlite3_stmt, Close> row(prepared);
    bool done = true;
    for (std::size_t i = 0; i < count && done; ++i) {
        bindRow(prepared, entries[i % entries.size()]);
        done = sqlite3_step(prepared) == SQLITE_DONE;
        sqlite3_reset(prepared);
    }
    return execute(done ? "COMMIT" : "ROLLBACK") && done;
}

sqlite3_stmt* RawStore::query(std::string_view condition, std::span<const std::int64_t> numbers) {
    if (!statement_ || prepared_ != condition) {
        sqlite3_stmt* prepared = nullptr;
        const std::string sql = selectSql + std::string(condition) + " ORDER BY p1001_filetime, id";
        sqlite3_prepare_v2(connection_.get(), sql.c_str(), -1, &prepared, nullptr);
        statement_.reset(prepared);
        prepared_ = condition;
    }
    int next = 1;
    for (const std::int64_t number : numbers)
        sqlite3_bind_int64(statement_.get(), next++, number);
    return statement_.get();
}

void RawStore::takeRow(sqlite3_stmt* row, TimeEntry& entry) {
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

} // namespace hourwright::bench
