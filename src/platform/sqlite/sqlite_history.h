#pragma once

#include "platform/history.h"
#include "platform/sqlite/volume.h"

#include <map>
#include <memory>
#include <vector>

namespace hourwright::platform::sqlite {

class RowWriter;

/// The history that a volume's journal remembers.
class SqliteHistory final : public History {
public:
    explicit SqliteHistory(Volume& volume);
    ~SqliteHistory() override;
    SqliteHistory(const SqliteHistory&) = delete;
    SqliteHistory& operator=(const SqliteHistory&) = delete;

    [[nodiscard]] std::vector<HistoryStep> steps() override;
    [[nodiscard]] HistoryResult undo() override { return run(Way::back); }
    [[nodiscard]] HistoryResult redo() override { return run(Way::forth); }

private:
    enum class Way : std::uint8_t { back, forth };

    [[nodiscard]] HistoryResult run(Way way);
    [[nodiscard]] HistoryResult runStep(Way way);
    [[nodiscard]] HistoryResult replay(const JournalStep& step, Way way);
    [[nodiscard]] HistoryResult replayPart(std::int64_t part, Way way);
    [[nodiscard]] HistoryResult apply(const RecordChange& change);
    void forgetWriters();
    HistoryResult failed();
    HistoryResult damaged();

    /// A table and what writes to it.
    struct Writer {
        std::shared_ptr<Table> table;
        std::unique_ptr<RowWriter> rows;
    };

    Volume& volume_;
    std::map<ObjectId, Writer> writers_; // while a step runs
};

} // namespace hourwright::platform::sqlite
