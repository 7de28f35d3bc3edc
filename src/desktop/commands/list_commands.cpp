#include "desktop/commands/commands.h"
#include "desktop/lists/find_bar.h"
#include "desktop/lists/list_options_dialog.h"
#include "desktop/main_window.h"

namespace hourwright::desktop {

void addListCommands(MainWindow& window) {
    auto* bar = new FindBar(window);
    window.addToolBar(Qt::BottomToolBarArea, bar);
    window.addToolBarBreak(Qt::BottomToolBarArea);
    bar->hide();
    window.commands().set(app::Command::find, [bar] { bar->open(); });
    window.commands().set(app::Command::customize,
                          [&window] { ListOptionsDialog(window.workspace(), &window).exec(); });
}

} // namespace hourwright::desktop
