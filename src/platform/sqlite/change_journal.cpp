#include "platform/sqlite/change_journal.h"

#include "platform/sqlite/record_checksum.h"
#include "platform/utf.h"

#include <algorithm>

namespace hourwright::platform::sqlite {

namespace {

constexpr std::size_t partSize = std::size_t{256} << 10;

constexpr std::string_view layout =
    "CREATE TABLE IF NOT EXISTS journal_steps (id INTEGER PRIMARY KEY, name TEXT NOT NULL, time INTEGER NOT NULL,"
    " records INTEGER NOT NULL, undone INTEGER NOT NULL, first_part INTEGER NOT NULL, parts INTEGER NOT NULL,"
    " bytes INTEGER NOT NULL, checksum INTEGER NOT NULL);"
    "CREATE TABLE IF NOT EXISTS journal_parts (id INTEGER PRIMARY KEY, checksum INTEGER NOT NULL,"
    " content BLOB NOT NULL);";

std::int64_t nextId(Connection& connection, std::string_view table) {
    Statement row(connection, "SELECT coalesce(max(id), 0) + 1 FROM " + std::string(table));
    return row.step() == Step::row ? row.integer(0) : 0;
}

bool runWith(Connection& connection, std::string_view sql, std::int64_t first, std::int64_t second) {
    Statement statement(connection, sql);
    if (!statement)
        return false;
    statement.bind(1, first);
    statement.bind(2, second);
    return statement.run();
}

} // namespace

std::uint32_t checksumOf(const JournalStep& row) {
    RecordChecksum checksum;
    const std::string name = toUtf8(row.step.name);
    checksum.add(static_cast<std::uint64_t>(row.step.id));
    checksum.add(std::uint64_t{name.size()});
    checksum.add(name);
    for (const std::uint64_t number : {row.step.time.ticks, row.step.records, std::uint64_t{row.step.undone ? 1U : 0U},
                                       static_cast<std::uint64_t>(row.firstPart), static_cast<std::uint64_t>(row.parts),
                                       static_cast<std::uint64_t>(row.bytes)})
        checksum.add(number);
    return checksum.value();
}

std::uint32_t checksumOfPart(std::int64_t part, std::span<const std::byte> content) {
    RecordChecksum checksum;
    checksum.add(static_cast<std::uint64_t>(part));
    checksum.add(content);
    return checksum.value();
}

bool ChangeJournal::begin(const ChangeLabel& label) {
    reset();
    if (label.name.empty())
        return true;
    if (!tablesMade_ && !connection_.execute(std::string(layout)))
        return false;
    tablesMade_ = true;
    running_.step.name = label.name;
    running_.step.time = label.time;
    recording_ = true;
    return true;
}

void ChangeJournal::rolledBack() {
    tablesMade_ = false;
    reset();
}

void ChangeJournal::reset() {
    recording_ = false;
    running_ = {};
    buffer_.clear();
    records_.clear();
}

bool ChangeJournal::record(const RecordChange& change) {
    if (!recording_)
        return true;
    if (buffer_.empty())
        buffer_ += journalFormat;
    appendChange(buffer_, change);
    records_.push_back(change.record);
    return buffer_.size() < partSize || flush();
}

bool ChangeJournal::flush() {
    if (buffer_.empty())
        return true;
    if (running_.firstPart == 0)
        running_.firstPart = nextId(connection_, "journal_parts");
    if (!insertPart_)
        insertPart_ = Statement(connection_, "INSERT INTO journal_parts(id, checksum, content) VALUES (?1, ?2, ?3)");
    if (running_.firstPart == 0 || !insertPart_)
        return false;
    const std::int64_t id = running_.firstPart + running_.parts;
    const auto content = asBytes(buffer_);
    insertPart_.bind(1, id);
    insertPart_.bind(2, std::int64_t{checksumOfPart(id, content)});
    insertPart_.bind(3, content);
    const bool written = insertPart_.run();
    ++running_.parts;
    running_.bytes += static_cast<std::int64_t>(buffer_.size());
    buffer_.clear();
    return written;
}

bool ChangeJournal::end() {
    const bool kept = recording_ && !records_.empty();
    // Parts that were written before the description was given up belong to no step.
    const bool done = kept ? flush() && store() : running_.parts == 0 || drop(running_);
    reset();
    return done;
}

bool ChangeJournal::store() {
    std::ranges::sort(records_);
    // Not std::ranges::unique: clang 14 cannot read what the standard library of gcc 12 makes of it.
    const auto end = std::unique(records_.begin(), records_.end());
    running_.step.records = static_cast<std::uint64_t>(end - records_.begin());
    auto known = steps();
    if (!known || !dropUndone(*known) || !dropOldest(*known, static_cast<std::uint64_t>(running_.bytes)))
        return false;
    running_.step.id = known->empty() ? 1 : known->back().step.id + 1;
    return insertRow(running_);
}

bool ChangeJournal::insertRow(const JournalStep& row) {
    Statement insert(connection_, "INSERT INTO journal_steps(id, name, time, records, undone, first_part, parts, bytes,"
                                  " checksum) VALUES (?1, ?2, ?3, ?4, 0, ?5, ?6, ?7, ?8)");
    if (!insert)
        return false;
    const std::string name = toUtf8(row.step.name);
    int next = 1;
    insert.bind(next++, row.step.id);
    insert.bind(next++, std::string_view(name));
    insert.bind(next++, static_cast<std::int64_t>(row.step.time.ticks));
    insert.bind(next++, static_cast<std::int64_t>(row.step.records));
    insert.bind(next++, row.firstPart);
    insert.bind(next++, row.parts);
    insert.bind(next++, row.bytes);
    insert.bind(next++, std::int64_t{checksumOf(row)});
    return insert.run();
}

bool ChangeJournal::dropUndone(std::vector<JournalStep>& steps) {
    for (; !steps.empty() && steps.back().step.undone; steps.pop_back())
        if (!drop(steps.back()))
            return false;
    return true;
}

// Makes room for a new step.
bool ChangeJournal::dropOldest(const std::vector<JournalStep>& steps, std::uint64_t newBytes) {
    std::uint64_t bytes = newBytes;
    std::size_t kept = 0;
    bool full = false;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        bytes += static_cast<std::uint64_t>(step->bytes);
        full = full || kept + 1 >= bounds_.steps || bytes > bounds_.bytes;
        ++kept;
        if (full && !drop(*step))
            return false;
    }
    return true;
}

bool ChangeJournal::drop(const JournalStep& step) {
    return runWith(connection_, "DELETE FROM journal_parts WHERE id BETWEEN ?1 AND ?2", step.firstPart,
                   step.firstPart + step.parts - 1) &&
           runWith(connection_, "DELETE FROM journal_steps WHERE id BETWEEN ?1 AND ?2", step.step.id, step.step.id);
}

bool ChangeJournal::clear() {
    reset();
    return !exists() || connection_.execute("DELETE FROM journal_parts; DELETE FROM journal_steps");
}

bool ChangeJournal::exists() {
    Statement row(connection_, "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = 'journal_steps'");
    return row.step() == Step::row && row.integer(0) == 1;
}

std::optional<std::vector<JournalStep>> ChangeJournal::steps() {
    std::vector<JournalStep> found;
    if (!exists())
        return found;
    Statement rows(connection_, "SELECT id, name, time, records, undone, first_part, parts, bytes, checksum"
                                " FROM journal_steps ORDER BY id");
    Step step = Step::failed;
    while ((step = rows.step()) == Step::row) {
        JournalStep& row = found.emplace_back();
        row.step.id = rows.integer(0);
        row.step.name = toUtf16(rows.text(1));
        row.step.time.ticks = static_cast<std::uint64_t>(rows.integer(2));
        row.step.records = static_cast<std::uint64_t>(rows.integer(3));
        row.step.undone = rows.integer(4) != 0;
        row.firstPart = rows.integer(5);
        row.parts = rows.integer(6);
        row.bytes = rows.integer(7);
        row.checksum = static_cast<std::uint32_t>(rows.integer(8));
    }
    return step == Step::done ? std::optional(std::move(found)) : std::nullopt;
}

std::optional<std::string> ChangeJournal::part(std::int64_t number) {
    Statement row(connection_, "SELECT checksum, content FROM journal_parts WHERE id = ?1");
    if (!row)
        return {};
    row.bind(1, number);
    if (row.step() != Step::row)
        return {};
    const auto content = row.blob(1);
    if (content.empty() || row.integer(0) != std::int64_t{checksumOfPart(number, content)} ||
        std::to_integer<char>(content.front()) != journalFormat)
        return {};
    return std::string(asText(content.subspan(1)));
}

std::int64_t ChangeJournal::partCount() {
    if (!exists())
        return 0;
    Statement row(connection_, "SELECT count(*) FROM journal_parts");
    return row.step() == Step::row ? row.integer(0) : -1;
}

bool ChangeJournal::setUndone(JournalStep row, bool undone) {
    row.step.undone = undone;
    Statement update(connection_, "UPDATE journal_steps SET undone = ?2, checksum = ?3 WHERE id = ?1");
    if (!update)
        return false;
    update.bind(1, row.step.id);
    update.bind(2, std::int64_t{undone ? 1 : 0});
    update.bind(3, std::int64_t{checksumOf(row)});
    return update.run();
}

} // namespace hourwright::platform::sqlite
