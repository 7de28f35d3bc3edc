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
    using History::redo;
    using History::undo;
    [[nodiscard]] HistoryResult undo(const HistoryProgress& progress) override { return run(Way::back, progress); }
    [[nodiscard]] HistoryResult redo(const HistoryProgress& progress) override { return run(Way::forth, progress); }

private:
    enum class Way : std::uint8_t { back, forth };

    [[nodiscard]] HistoryResult run(Way way, const HistoryProgress& progress);
    [[nodiscard]] HistoryResult runStep(Way way);
    [[nodiscard]] HistoryResult replay(const JournalStep& step, Way way);
    [[nodiscard]] HistoryResult replayPart(std::int64_t part, Way way);
    [[nodiscard]] HistoryResult apply(const RecordChange& change);
    [[nodiscard]] bool goesOn();
    void forgetWriters();
    HistoryResult failed();
    HistoryResult damaged();

    /// A table and what writes to it.
    struct Writer {
        std::shared_ptr<Table> table;
        std::unique_ptr<RowWriter> rows;
    };

    Volume& volume_;
    // While a step runs:
    std::map<ObjectId, Writer> writers_;
    const HistoryProgress* progress_ = nullptr;
    std::uint64_t changes_ = 0;
};

} // namespace hourwright::platform::sqlite
