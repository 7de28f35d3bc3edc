#include "desktop/commands/commands.h"
#include "desktop/main_window.h"
#include "desktop/options/about_dialog.h"
#include "desktop/options/options_dialog.h"

namespace hourwright::desktop {

using app::Command;

namespace {

void openOptions(MainWindow& window) {
    OptionsDialog dialog(window.workspace(), &window);
    bool close = false;
    QObject::connect(&dialog, &OptionsDialog::closeRequested, &dialog, [&close] { close = true; });
    dialog.exec();
    if (close)
        window.close();
}

} // namespace

void addOptionsCommands(MainWindow& window) {
    window.commands().set(Command::options, [&window] { openOptions(window); });
    window.commands().set(Command::help, [&window] { window.workspace().showHelp("Main_Contents"); });
    window.commands().set(Command::about, [&window] { AboutDialog(window.workspace(), &window).exec(); });
}

} // namespace hourwright::desktop
