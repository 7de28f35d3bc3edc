#pragma once

#include "desktop/command_handlers.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <functional>
#include <map>

namespace hourwright::desktop {

/// The commands as actions with their shortcuts, and the menus made of them. The state of every action follows the
/// view's state whenever a menu opens and when `update` is called.
class CommandActions {
public:
    /// The actions belong to the window, which has their shortcuts.
    CommandActions(QWidget* window, const CommandHandlers& handlers, std::function<app::ViewState()> state);

    [[nodiscard]] QAction* action(app::Command command) const { return actions_.at(command); }
    void update();

    /// Adds all menus to a menu bar, or as submenus to one menu.
    void fill(QMenuBar& bar);
    void fill(QMenu& menu);
    /// Adds the commands that concern the selection to a context menu, or without one those that make new records.
    void fillContextMenu(QMenu& menu);
    /// Adds those that make a new record on a day or at a time.
    void fillPlaceMenu(QMenu& menu);

private:
    [[nodiscard]] QMenu* makeMenu(app::Menu menu, QWidget* parent);
    void hideEmptyMenus();

    QWidget* window_;
    const CommandHandlers& handlers_;
    std::function<app::ViewState()> state_;
    std::map<app::Command, QAction*> actions_;
    std::vector<QMenu*> menus_;
};

} // namespace hourwright::desktop
