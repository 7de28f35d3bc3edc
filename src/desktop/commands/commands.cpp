#include "desktop/commands/commands.h"

namespace hourwright::desktop {

void addAllCommands(MainWindow& window) {
    addViewCommands(window);
    addExportCommands(window);
    addSummaryCommands(window);
}

} // namespace hourwright::desktop
