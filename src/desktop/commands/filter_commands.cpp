#include "desktop/commands/commands.h"
#include "desktop/filters/custom_period_dialog.h"
#include "desktop/filters/default_view_dialog.h"
#include "desktop/filters/filter_dialog.h"
#include "desktop/main_window.h"

namespace hourwright::desktop {

using app::Command;

namespace {

bool showsEntries(Workspace& workspace) {
    return workspace.view().records() == app::RecordKind::entries;
}

void openCustomFilter(MainWindow& window) {
    if (showsEntries(window.workspace()))
        EntryFilterDialog(window.workspace(), &window).exec();
    else
        ExpenseFilterDialog(window.workspace(), &window).exec();
}

} // namespace

void addFilterCommands(MainWindow& window) {
    auto& workspace = window.workspace();
    window.commands().set(Command::filterAll, [&workspace] {
        if (showsEntries(workspace))
            workspace.entryFilter().showAll();
        else
            workspace.expenseFilter().showAll();
        workspace.saveFilters();
    });
    window.commands().set(Command::filterUnpaid, [&workspace] {
        if (showsEntries(workspace))
            workspace.entryFilter().showUnpaidOnly();
        else
            workspace.expenseFilter().showUnpaidOnly();
        workspace.saveFilters();
    });
    window.commands().set(Command::filterCustom, [&window] { openCustomFilter(window); });
    window.commands().set(Command::viewCustom, [&window] { CustomPeriodDialog(window.workspace(), &window).exec(); });
    window.commands().set(Command::customizeDefaultView,
                          [&window] { DefaultViewDialog(window.workspace(), &window).exec(); });
}

} // namespace hourwright::desktop
