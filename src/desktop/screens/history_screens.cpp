#include "desktop/history_dialog.h"
#include "desktop/screens/screens.h"

namespace hourwright::desktop {

void addHistoryScreens(std::vector<Screen>& screens) {
    screens.push_back({"history", [](MainWindow& window) -> QWidget* {
                           Workspace& workspace = window.workspace();
                           for (const char16_t* const name : {u"Edit Entry", u"Mark Paid", u"Delete Entries"})
                               workspace.change(name, [&](platform::Transaction& transaction) {
                                   auto& entries = workspace.stores().entries();
                                   return entries.seek(platform::Seek::toEnd()) != store::RecordId::none &&
                                          entries.deleteCurrent(transaction);
                               });
                           workspace.undo();
                           return new HistoryDialog(workspace, &window);
                       }});
}

} // namespace hourwright::desktop
