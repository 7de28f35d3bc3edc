#pragma once

#include "desktop/workspace.h"
#include "exchange/export_run.h"

#include <QWidget>
#include <atomic>
#include <filesystem>
#include <functional>

namespace hourwright::desktop {

/// What an export of the current view runs on: a connection of the export's own, the view's period, and the tests of
/// its filters, which also count how many records have been looked at.
struct ViewExport {
    store::Stores& stores;
    store::DateRange range;
    exchange::TimeEntryFilter acceptsEntry;
    exchange::ExpenseFilter acceptsExpense;
    exchange::ExportTarget target;
};

/// Runs an export of the current view to a file while the window goes on painting. A failure shows its message; what
/// was written stays, but of a cancelled export nothing. After a success a note offers to open the file or its folder.
/// True on success.
bool runViewExport(Workspace& workspace, QWidget* window, const std::filesystem::path& file,
                   const std::function<exchange::ExportResult(const ViewExport&)>& work);

/// The same for a form of which a part is of no use: the file has its name only when it is complete.
bool runWholeViewExport(Workspace& workspace, QWidget* window, const std::filesystem::path& file,
                        const std::function<exchange::ExportResult(const ViewExport&)>& work);

} // namespace hourwright::desktop
