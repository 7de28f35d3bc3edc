#include "desktop/bulk/long_change.h"
#include "desktop/commands/commands.h"
#include "desktop/history_dialog.h"
#include "desktop/main_window.h"

namespace hourwright::desktop {

using app::Command;

void addHistoryCommands(MainWindow& window) {
    Workspace& workspace = window.workspace();
    window.undoName = [&workspace] { return workspace.undoName(); };
    window.redoName = [&workspace] { return workspace.redoName(); };
    window.commands().set(Command::undo, [&window, &workspace] { undoChange(workspace, &window); });
    window.commands().set(Command::redo, [&window, &workspace] { redoChange(workspace, &window); });
    window.commands().set(Command::history, [&window, &workspace] {
        HistoryDialog dialog(workspace, &window);
        dialog.exec();
    });
}

} // namespace hourwright::desktop
