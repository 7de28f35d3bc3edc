#include "desktop/commands/commands.h"

namespace hourwright::desktop {

void addAllCommands(MainWindow& window) {
    addViewCommands(window);
}

} // namespace hourwright::desktop
