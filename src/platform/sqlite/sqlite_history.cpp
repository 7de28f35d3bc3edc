#include "platform/sqlite/sqlite_history.h"

#include "platform/sqlite/row_writer.h"

#include <algorithm>

namespace hourwright::platform::sqlite {

SqliteHistory::SqliteHistory(Volume& volume) : volume_(volume) {}

SqliteHistory::~SqliteHistory() = default;

std::vector<HistoryStep> SqliteHistory::steps() {
    std::vector<HistoryStep> found;
    const auto rows = volume_.journal().steps();
    if (!rows)
        volume_.fail();
    else
        volume_.finish(PlatformError::none);
    for (const JournalStep& row : rows.value_or(std::vector<JournalStep>{}))
        found.push_back(row.step);
    return found;
}

HistoryResult SqliteHistory::run(Way way, const HistoryProgress& progress) {
    if (!volume_.begin({}))
        return HistoryResult::failed;
    progress_ = &progress;
    changes_ = 0;
    const HistoryResult result = runStep(way);
    forgetWriters();
    if (result == HistoryResult::done)
        return volume_.commit() ? result : HistoryResult::failed;
    const PlatformError error = volume_.lastError();
    volume_.rollback();
    volume_.finish(result == HistoryResult::failed ? error : PlatformError::none);
    return result;
}

HistoryResult SqliteHistory::runStep(Way way) {
    const auto steps = volume_.journal().steps();
    if (!steps)
        return failed();
    // The undone steps are the newest ones: the border between them and the others is where both ways begin.
    const auto firstUndone = std::ranges::find_if(*steps, [](const JournalStep& row) { return row.step.undone; });
    if (firstUndone == (way == Way::back ? steps->begin() : steps->end()))
        return HistoryResult::nothing;
    const JournalStep& step = way == Way::back ? *(firstUndone - 1) : *firstUndone;
    if (step.checksum != checksumOf(step))
        return damaged();
    const HistoryResult result = replay(step, way);
    if (result != HistoryResult::done)
        return result;
    return volume_.journal().setUndone(step, way == Way::back) ? result : failed();
}

HistoryResult SqliteHistory::replay(const JournalStep& step, Way way) {
    HistoryResult result = HistoryResult::done;
    for (std::int64_t i = 0; i < step.parts && result == HistoryResult::done; ++i)
        result = replayPart(step.firstPart + (way == Way::back ? step.parts - 1 - i : i), way);
    return result;
}

HistoryResult SqliteHistory::replayPart(std::int64_t number, Way way) {
    const auto content = volume_.journal().part(number);
    if (!content)
        return damaged();
    ChangeReader reader(asBytes(*content), volume_.shapes());
    RecordChange change;
    std::vector<std::size_t> starts;
    while (!reader.atEnd()) {
        starts.push_back(reader.position());
        if (!reader.read(change))
            return damaged();
    }
    if (way == Way::back)
        std::ranges::reverse(starts);
    for (const std::size_t start : starts) {
        reader.moveTo(start);
        if (!reader.read(change))
            return damaged();
        if (way == Way::back)
            invert(change);
        const HistoryResult result = apply(change);
        if (result != HistoryResult::done)
            return result;
        if (!goesOn())
            return HistoryResult::cancelled;
    }
    return HistoryResult::done;
}

bool SqliteHistory::goesOn() {
    ++changes_;
    return !*progress_ || (*progress_)(changes_);
}

HistoryResult SqliteHistory::apply(const RecordChange& change) {
    Writer& writer = writers_[change.database];
    if (!writer.rows) {
        writer.table = volume_.table(change.database);
        if (!writer.table)
            return HistoryResult::changedMeanwhile;
        writer.rows = std::make_unique<RowWriter>(volume_.connection(), *writer.table, volume_.shapes());
    }
    switch (writer.rows->apply(change)) {
    case RowWriter::Outcome::written: return HistoryResult::done;
    case RowWriter::Outcome::otherRow: return HistoryResult::changedMeanwhile;
    case RowWriter::Outcome::failed: break;
    }
    return failed();
}

// Whoever stands in a table learns that its rows are others now.
void SqliteHistory::forgetWriters() {
    for (auto& [id, writer] : writers_)
        if (writer.table) {
            writer.table->contentChanged();
            writer.table->orderChanged();
        }
    writers_.clear();
}

HistoryResult SqliteHistory::failed() {
    volume_.fail();
    return HistoryResult::failed;
}

HistoryResult SqliteHistory::damaged() {
    volume_.finish(PlatformError::fileCorrupt);
    return HistoryResult::failed;
}

} // namespace hourwright::platform::sqlite
