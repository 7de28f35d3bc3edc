#include "desktop/commands/commands.h"

namespace hourwright::desktop {

void addAllCommands(MainWindow& window) {
    addHistoryCommands(window);
    addViewCommands(window);
    addEntryCommands(window);
}

} // namespace hourwright::desktop
