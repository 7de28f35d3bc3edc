#include "desktop/bulk/bulk_run.h"

#include "desktop/bulk/long_change.h"

namespace hourwright::desktop {

using platform::HistoryResult;
using resources::StringId;

namespace {

HistoryResult runStep(WorkerStores& worker, BackgroundProgress& progress, const platform::ChangeLabel& label,
                      const BulkStep& step, std::optional<std::size_t>& count) {
    progress.total = worker.stores->entries().recordCount();
    const auto transaction = worker.objects->begin(label);
    if (transaction == nullptr)
        return HistoryResult::failed;
    const auto goesOn = [&progress](std::size_t walked) {
        progress.done = walked;
        return !progress.cancelled;
    };
    count = step({*transaction, *worker.stores, *worker.locales.user, goesOn});
    if (!count)
        return progress.cancelled ? HistoryResult::cancelled : HistoryResult::failed;
    return transaction->commit() ? HistoryResult::done : HistoryResult::failed;
}

} // namespace

void tellCount(Workspace& workspace, StringId countMessage, std::size_t count) {
    workspace.messages().show({.id = countMessage,
                               .text = platform::withNumber(countMessage, static_cast<std::int32_t>(count)),
                               .icon = platform::Icon::information});
}

void runBulk(Workspace& workspace, QWidget* parent, std::u16string_view undoName, StringId countMessage,
             const BulkStep& step) {
    std::optional<std::size_t> count;
    const platform::ChangeLabel label{.name = undoName, .time = workspace.clock().now()};
    const auto outcome =
        runLongChange(workspace, parent, true, [&](WorkerStores& worker, BackgroundProgress& progress) {
            return runStep(worker, progress, label, step, count);
        });
    if (outcome.done())
        tellCount(workspace, *count == 0 ? StringId::noneMatched : countMessage, *count);
}

} // namespace hourwright::desktop
