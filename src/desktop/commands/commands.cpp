#include "desktop/commands/commands.h"

namespace hourwright::desktop {

void addAllCommands(MainWindow& window) {
    addHistoryCommands(window);
    addListCommands(window);
    addViewCommands(window);
    addDemo(window);
    addEntryCommands(window);
    addSetupCommands(window);
    addExpenseCommands(window);
    addExportCommands(window);
    addSummaryCommands(window);
    addFilterCommands(window);
    addOptionsCommands(window);
    addDataCommands(window);
}

} // namespace hourwright::desktop
