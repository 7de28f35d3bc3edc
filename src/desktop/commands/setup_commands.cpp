#include "desktop/commands/commands.h"
#include "desktop/main_window.h"
#include "desktop/structure/client_setup_dialog.h"
#include "desktop/structure/drop_lists_dialog.h"
#include "desktop/structure/rate_setup_dialog.h"

namespace hourwright::desktop {

namespace {

template<typename SetupDialog>
void setDialog(MainWindow& window, app::Command command) {
    window.commands().set(command, [&window] { SetupDialog(window.workspace(), &window).exec(); });
}

} // namespace

void addSetupCommands(MainWindow& window) {
    setDialog<ClientSetupDialog>(window, app::Command::setupClients);
    setDialog<RateSetupDialog>(window, app::Command::setupRates);
    setDialog<DropListsDialog>(window, app::Command::editDropLists);
}

} // namespace hourwright::desktop
