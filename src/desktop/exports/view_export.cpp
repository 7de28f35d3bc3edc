#include "desktop/exports/view_export.h"

#include "desktop/background_run.h"
#include "desktop/exports/export_note.h"
#include "platform/cancellable_files.h"
#include "platform/posix/file_replacement.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/exports.h"

#include <optional>

namespace hourwright::desktop {

namespace {

// The filters as they are now, for another thread, with the locale of its own.
class WorkerFilters {
public:
    WorkerFilters(Workspace& workspace, const platform::Locale& locale, BackgroundProgress& progress)
        : entries_(workspace.entryFilter(), locale), expenses_(workspace.expenseFilter(), locale), progress_(progress) {
    }

    bool accepts(const store::TimeEntry& entry) {
        ++progress_.done;
        return entries_.matches(entry);
    }
    bool accepts(const store::ExpenseEntry& expense) {
        ++progress_.done;
        return expenses_.matches(expense);
    }

private:
    app::EntryMatcher entries_;
    app::ExpenseMatcher expenses_;
    BackgroundProgress& progress_;
};

struct Outcome {
    exchange::ExportResult result{.status = exchange::ExportStatus::readFailed};
    bool cancelled = false;
};

Outcome runOnWorker(Workspace& workspace, QWidget* window, const std::filesystem::path& file,
                    const std::function<exchange::ExportResult(const ViewExport&)>& work) {
    Outcome outcome;
    const auto worker = workspace.openForWorker();
    if (worker == nullptr)
        return outcome;
    const BackgroundTexts texts{.label = platform::toQString(resources::exports::running), .mayCancel = true};
    runInBackground(window, texts, [&](BackgroundProgress& progress) {
        WorkerFilters filters(workspace, *worker->locales.user, progress);
        platform::CancellableFiles files(workspace.files(), progress.cancelled);
        outcome.result = work({.stores = *worker->stores,
                               .range = workspace.view().period().dateRange(),
                               .acceptsEntry = [&](const auto& entry) { return filters.accepts(entry); },
                               .acceptsExpense = [&](const auto& expense) { return filters.accepts(expense); },
                               .target = {files, file, *worker->locales.system}});
        outcome.cancelled = progress.cancelled;
    });
    return outcome;
}

// True for a complete file: says so, or why there is none.
bool tellOutcome(Workspace& workspace, QWidget* window, const std::filesystem::path& file, const Outcome& outcome) {
    if (outcome.cancelled)
        return false;
    if (!outcome.result.ok()) {
        workspace.messages().showFailure(resources::StringId::exportFailed);
        return false;
    }
    auto* note = new ExportNote(workspace, file, outcome.result.records, window);
    note->setAttribute(Qt::WA_DeleteOnClose);
    note->show();
    return true;
}

} // namespace

bool runViewExport(Workspace& workspace, QWidget* window, const std::filesystem::path& file,
                   const std::function<exchange::ExportResult(const ViewExport&)>& work) {
    const Outcome outcome = runOnWorker(workspace, window, file, work);
    if (outcome.cancelled) {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
    return tellOutcome(workspace, window, file, outcome);
}

bool runWholeViewExport(Workspace& workspace, QWidget* window, const std::filesystem::path& file,
                        const std::function<exchange::ExportResult(const ViewExport&)>& work) {
    platform::FileReplacement whole(file);
    Outcome outcome;
    if (whole.error() == platform::PlatformError::none)
        outcome = runOnWorker(workspace, window, whole.path(), work);
    if (outcome.result.ok() && !outcome.cancelled && whole.keep() != platform::PlatformError::none)
        outcome.result.status = exchange::ExportStatus::writeFailed;
    return tellOutcome(workspace, window, file, outcome);
}

} // namespace hourwright::desktop
