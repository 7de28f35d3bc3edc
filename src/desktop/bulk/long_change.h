#pragma once

#include "desktop/background_run.h"
#include "desktop/workspace.h"

#include <functional>
#include <optional>

namespace hourwright::desktop {

/// From how many records on a change runs in the background.
inline constexpr std::size_t manyRecords = 1'000;

/// A change of records on a thread and a connection of its own. It looks whether it is cancelled and says how far it
/// is; whatever it does is done under a transaction or by the history.
using LongChange = std::function<platform::HistoryResult(WorkerStores& worker, BackgroundProgress& progress)>;

/// What came of it; `error` is that of one that failed.
struct LongChangeResult {
    platform::HistoryResult result = platform::HistoryResult::failed;
    platform::PlatformError error = platform::PlatformError::openFailed;

    [[nodiscard]] bool done() const { return result == platform::HistoryResult::done; }
};

/// Runs a long change through `run`, which calls its argument on another thread and waits while the event loop goes on.
/// The views learn of a change that is done.
LongChangeResult runLongChange(Workspace& workspace, const LongChange& change,
                               const std::function<void(const std::function<void(BackgroundProgress&)>&)>& run);
/// The same with a progress bar over the window. A failure is shown.
LongChangeResult runLongChange(Workspace& workspace, QWidget* window, bool mayCancel, const LongChange& change);

/// A change of so many records as one step of undo; many of them are changed in the background. A failure is shown.
/// True when it was done.
bool changeRecords(Workspace& workspace, QWidget* window, std::u16string_view undoName, std::size_t records,
                   const std::function<bool(platform::Transaction& transaction, store::Stores& stores)>& change);

/// Takes back the newest change, or makes the one again that was undone last; one of many records in the background,
/// with a bar and Cancel. A refusal is shown; false then.
bool undoChange(Workspace& workspace, QWidget* window);
bool redoChange(Workspace& workspace, QWidget* window);

} // namespace hourwright::desktop
