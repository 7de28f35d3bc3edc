#include "desktop/screens/screens.h"
#include "desktop/structure/client_setup_dialog.h"
#include "desktop/structure/drop_lists_dialog.h"
#include "desktop/structure/rate_setup_dialog.h"
#include "desktop/structure/structure_tree.h"

namespace hourwright::desktop {

namespace {

// The dialog with its first client opened and, in that, the first row selected.
ClientSetupDialog* clientSetup(MainWindow& window) {
    auto* dialog = new ClientSetupDialog(window.workspace(), &window);
    if (auto* client = dialog->tree().topLevelItem(1)) {
        client->setExpanded(true);
        if (client->childCount() > 0) {
            client->child(0)->setExpanded(true);
            dialog->tree().setCurrentItem(client->child(0));
        }
    }
    return dialog;
}

// A dialog of another one, which goes with it.
QWidget* above(QWidget* owner, std::unique_ptr<Dialog> dialog) {
    QObject::connect(dialog.get(), &QObject::destroyed, owner, &QObject::deleteLater);
    return dialog.release();
}

RateSetupDialog* rateSetup(MainWindow& window) {
    auto* dialog = new RateSetupDialog(window.workspace(), &window);
    const auto clients = store::listClients(window.workspace().stores());
    if (clients && !clients->empty())
        dialog->showClient(clients->front().clientId);
    return dialog;
}

QWidget* rateDialog(MainWindow& window) {
    auto* setup = rateSetup(window);
    auto dialog = setup->editDialog();
    return dialog ? above(setup, std::move(dialog)) : setup;
}

} // namespace

void addStructureScreens(std::vector<Screen>& screens) {
    screens.push_back({"setup-clients", [](MainWindow& window) -> QWidget* { return clientSetup(window); }});
    screens.push_back({"setup-clients-new", [](MainWindow& window) -> QWidget* {
                           auto* setup = clientSetup(window);
                           return above(setup, setup->addDialog(billing::StructureKind::projectTask));
                       }});
    screens.push_back({"setup-clients-rename", [](MainWindow& window) -> QWidget* {
                           auto* setup = clientSetup(window);
                           return above(setup, setup->editDialog());
                       }});
    screens.push_back({"setup-clients-migrate", [](MainWindow& window) -> QWidget* {
                           auto* setup = clientSetup(window);
                           return above(setup, setup->migrateDialog());
                       }});
    screens.push_back({"setup-rates", rateSetup});
    screens.push_back({"setup-rate", rateDialog});
    screens.push_back({"drop-lists", [](MainWindow& window) -> QWidget* {
                           return new DropListsDialog(window.workspace(), &window);
                       }});
}

} // namespace hourwright::desktop
