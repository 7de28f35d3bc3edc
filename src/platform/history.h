#pragma once

#include "platform/file_time.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform {

/// What a transaction is called where its changes can be taken back, and the local time of it. A transaction without
/// a name cannot be undone.
struct ChangeLabel {
    std::u16string_view name{};
    FileTime time{};
};

/// A named transaction that the store remembers.
struct HistoryStep {
    std::int64_t id = 0; ///< grows from step to step
    std::u16string name;
    FileTime time;
    std::uint64_t records = 0; ///< how many records it changed
    bool undone = false;

    friend bool operator==(const HistoryStep&, const HistoryStep&) = default;
};

enum class HistoryResult : std::uint8_t {
    done,
    nothing,          ///< there is no such step
    changedMeanwhile, ///< a record is not as the step left it; nothing was changed
    failed,           ///< the store's last error says why; nothing was changed
    cancelled,        ///< by the caller; nothing was changed
};

/// Is told how many changes of a step have been carried out, after each of them. False ends it and takes them back.
using HistoryProgress = std::function<bool(std::uint64_t changes)>;

/// The last changes of a store, shared by all programs that use it. It outlives them, is bounded, and is emptied when a
/// database is deleted. A new named change forgets the steps that are undone.
class History {
public:
    virtual ~History() = default;

    /// The steps that are remembered, the oldest first; those undone are the newest ones.
    [[nodiscard]] virtual std::vector<HistoryStep> steps() = 0;

    /// Takes back the newest step that is not undone, in a transaction of its own: every record is as it was before,
    /// with its object id.
    [[nodiscard]] virtual HistoryResult undo(const HistoryProgress& progress) = 0;
    [[nodiscard]] HistoryResult undo() { return undo(HistoryProgress{}); }

    /// Carries out again the step that was undone last.
    [[nodiscard]] virtual HistoryResult redo(const HistoryProgress& progress) = 0;
    [[nodiscard]] HistoryResult redo() { return redo(HistoryProgress{}); }
};

} // namespace hourwright::platform
