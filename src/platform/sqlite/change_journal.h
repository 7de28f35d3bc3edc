#pragma once

#include "platform/history.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/journal_format.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::platform::sqlite {

/// How much history is kept.
struct JournalBounds {
    std::size_t steps = 100;
    std::uint64_t bytes = std::uint64_t{64} << 20;
};

/// A row of `journal_steps`. The step's changes are in the parts `firstPart` to `firstPart + parts - 1`, in the order
/// in which they were made.
struct JournalStep {
    HistoryStep step;
    std::int64_t firstPart = 0;
    std::int64_t parts = 0;
    std::int64_t bytes = 0;
    std::uint32_t checksum = 0;
};

/// The checksum that a step's row must have, and that of the part with this number.
[[nodiscard]] std::uint32_t checksumOf(const JournalStep& step);
[[nodiscard]] std::uint32_t checksumOfPart(std::int64_t part, std::span<const std::byte> content);

/// Keeps what named transactions do to records, in the same file and the same SQL transaction as the changes. Functions
/// that return false leave the reason with the connection.
class ChangeJournal {
public:
    ChangeJournal(Connection& connection, JournalBounds bounds) : connection_(connection), bounds_(bounds) {}

    /// Begins a step in the open SQL transaction; without a name nothing is recorded.
    [[nodiscard]] bool begin(const ChangeLabel& label);
    [[nodiscard]] bool isRecording() const { return recording_; }
    [[nodiscard]] bool record(const RecordChange& change);
    /// Makes that the running step is not kept: a change could not be described.
    void giveUp() { recording_ = false; }
    /// Stores the step, forgets those that are undone and the oldest beyond the bounds.
    [[nodiscard]] bool end();
    /// Forgets the running step; its transaction was rolled back.
    void rolledBack();

    /// Forgets every step, and records nothing more in this transaction.
    [[nodiscard]] bool clear();

    /// All steps, the oldest first; nothing when they cannot be read.
    [[nodiscard]] std::optional<std::vector<JournalStep>> steps();
    /// The bytes of a part; nothing when it is missing, damaged or of a later version.
    [[nodiscard]] std::optional<std::string> part(std::int64_t number);
    /// How many parts there are.
    [[nodiscard]] std::int64_t partCount();
    [[nodiscard]] bool setUndone(JournalStep step, bool undone);

private:
    void reset();
    [[nodiscard]] bool exists();
    [[nodiscard]] bool flush();
    [[nodiscard]] bool store();
    [[nodiscard]] bool insertRow(const JournalStep& row);
    [[nodiscard]] bool dropUndone(std::vector<JournalStep>& steps);
    [[nodiscard]] bool dropOldest(const std::vector<JournalStep>& steps, std::uint64_t newBytes);
    [[nodiscard]] bool drop(const JournalStep& step);

    Connection& connection_;
    JournalBounds bounds_;
    bool tablesMade_ = false;
    bool recording_ = false;
    JournalStep running_; // its parts are those written so far
    std::string buffer_;  // of the next part
    std::vector<ObjectId> records_;
    Statement insertPart_;
};

} // namespace hourwright::platform::sqlite
