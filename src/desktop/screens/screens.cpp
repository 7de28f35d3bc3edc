#include "desktop/screens/screens.h"

namespace hourwright::desktop {

std::vector<Screen> allScreens() {
    std::vector<Screen> screens;
    addMainScreens(screens);
    addEditorScreens(screens);
    return screens;
}

} // namespace hourwright::desktop
