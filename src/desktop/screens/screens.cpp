#include "desktop/screens/screens.h"

namespace hourwright::desktop {

std::vector<Screen> allScreens() {
    std::vector<Screen> screens;
    addHistoryScreens(screens);
    addMainScreens(screens);
    addEditorScreens(screens);
    addNoteScreens(screens);
    addStructureScreens(screens);
    addExpenseScreens(screens);
    addTimerScreens(screens);
    addExportScreens(screens);
    addOptionsScreens(screens);
    return screens;
}

} // namespace hourwright::desktop
