#include "desktop/bulk/long_change.h"

#include "platform/qt/qt_text.h"

namespace hourwright::desktop {

using platform::HistoryResult;
using platform::PlatformError;
using resources::StringId;

namespace {

PlatformError errorOf(store::Stores& stores) {
    const auto ofEntries = stores.entries().lastError();
    return ofEntries == PlatformError::none ? stores.objects().lastError() : ofEntries;
}

bool takeStep(Workspace& workspace, QWidget* window, HistoryWay way) {
    const std::uint64_t records = workspace.recordsOfStep(way);
    if (records < manyRecords)
        return way == HistoryWay::back ? workspace.undo() : workspace.redo();
    const auto outcome =
        runLongChange(workspace, window, true, [&](WorkerStores& worker, BackgroundProgress& progress) {
            progress.total = records;
            const auto goesOn = [&progress](std::uint64_t changes) {
                progress.done = changes;
                return !progress.cancelled;
            };
            platform::History& history = worker.objects->history();
            return way == HistoryWay::back ? history.undo(goesOn) : history.redo(goesOn);
        });
    workspace.tellRefusal(way, outcome.result);
    return outcome.done();
}

} // namespace

LongChangeResult runLongChange(Workspace& workspace, const LongChange& change,
                               const std::function<void(const std::function<void(BackgroundProgress&)>&)>& run) {
    LongChangeResult outcome;
    const auto worker = workspace.openForWorker();
    if (worker == nullptr)
        return outcome;
    workspace.changeElsewhere([&] {
        run([&](BackgroundProgress& progress) {
            outcome.result = change(*worker, progress);
            outcome.error = errorOf(*worker->stores);
        });
        return outcome.done();
    });
    return outcome;
}

LongChangeResult runLongChange(Workspace& workspace, QWidget* window, bool mayCancel, const LongChange& change) {
    const BackgroundTexts texts{.label = platform::toQString(StringId::updatingRecords), .mayCancel = mayCancel};
    const auto outcome =
        runLongChange(workspace, change, [&](const auto& work) { runInBackground(window, texts, work); });
    if (outcome.result == HistoryResult::failed)
        workspace.messages().showError(platform::number(outcome.error));
    return outcome;
}

bool changeRecords(Workspace& workspace, QWidget* window, std::u16string_view undoName, std::size_t records,
                   const std::function<bool(platform::Transaction& transaction, store::Stores& stores)>& change) {
    if (records < manyRecords)
        return workspace.change(
            undoName, [&](platform::Transaction& transaction) { return change(transaction, workspace.stores()); });
    const platform::ChangeLabel label{.name = undoName, .time = workspace.clock().now()};
    return runLongChange(workspace, window, false,
                         [&](WorkerStores& worker, BackgroundProgress& /*progress*/) {
                             const auto transaction = worker.objects->begin(label);
                             const bool done = transaction != nullptr && change(*transaction, *worker.stores) &&
                                               transaction->commit();
                             return done ? HistoryResult::done : HistoryResult::failed;
                         })
        .done();
}

bool undoChange(Workspace& workspace, QWidget* window) {
    return takeStep(workspace, window, HistoryWay::back);
}

bool redoChange(Workspace& workspace, QWidget* window) {
    return takeStep(workspace, window, HistoryWay::forth);
}

} // namespace hourwright::desktop
