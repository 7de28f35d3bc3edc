#include "desktop/copies/copies_dialog.h"
#include "desktop/history_dialog.h"
#include "desktop/screens/screens.h"
#include "platform/calendar.h"
#include "platform/sqlite/sqlite_store_copies.h"

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
    screens.push_back({"copies", [](MainWindow& window) -> QWidget* {
                           const auto& directories = window.workspace().directories();
                           const auto copies = platform::openStoreCopies(platform::copyPlaces(directories));
                           const auto& now = window.workspace().clock().localTime();
                           for (const int daysBack : {40, 9, 3, 2, 1}) {
                               auto time = now;
                               platform::addDays(time, -daysBack);
                               static_cast<void>(copies->make(time, [] { return true; }));
                           }
                           auto* dialog = new CopiesDialog(window.workspace(), &window);
                           dialog->makeNow();
                           return dialog;
                       }});
}

} // namespace hourwright::desktop
