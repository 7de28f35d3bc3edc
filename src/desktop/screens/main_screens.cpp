#include "desktop/screens/screens.h"

namespace hourwright::desktop {

namespace {

std::function<QWidget*(MainWindow&)> after(app::Command command) {
    return [command](MainWindow& window) {
        window.commands().run(command);
        return &window;
    };
}

} // namespace

void addMainScreens(std::vector<Screen>& screens) {
    using enum app::Command;
    screens.push_back({"list-default", after(defaultListStyle)});
    screens.push_back({"list-simple", after(simpleListStyle)});
    screens.push_back({"list-tree", after(treeListStyle)});
    screens.push_back({"calendar-week", [](MainWindow& window) {
                           window.workspace().view().setCalendar(true);
                           window.commands().run(viewWeek);
                           return &window;
                       }});
    screens.push_back({"calendar-day", [](MainWindow& window) {
                           window.commands().run(viewDay);
                           window.commands().run(gotoToday);
                           return &window;
                       }});
    screens.push_back({"calendar-month", after(viewMonth)});
    screens.push_back({"expenses", [](MainWindow& window) {
                           window.commands().run(switchRecords);
                           window.commands().run(viewMonth);
                           return &window;
                       }});
}

} // namespace hourwright::desktop
