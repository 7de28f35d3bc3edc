#include "desktop/command_actions.h"

#include "platform/qt/qt_text.h"

#include <QKeySequence>
#include <algorithm>
#include <array>

namespace hourwright::desktop {

namespace {

using platform::toQString;

QList<QKeySequence> shortcutsOf(const app::CommandRow& row) {
    QList<QKeySequence> shortcuts;
    for (const QString& text : QString::fromUtf8(row.shortcut.data(), static_cast<qsizetype>(row.shortcut.size()))
                                   .split(' ', Qt::SkipEmptyParts))
        shortcuts.append(QKeySequence(text));
    return shortcuts;
}

} // namespace

CommandActions::CommandActions(QWidget* window, const CommandHandlers& handlers, std::function<app::ViewState()> state)
    : window_(window), handlers_(handlers), state_(std::move(state)) {
    for (const app::CommandRow& row : app::commandTable()) {
        auto* action = new QAction(toQString(row.text), window);
        action->setShortcuts(shortcutsOf(row));
        QObject::connect(action, &QAction::triggered, window, [this, command = row.command] {
            handlers_.run(command);
            update();
        });
        window->addAction(action);
        actions_.emplace(row.command, action);
    }
}

void CommandActions::update() {
    const app::ViewState state = state_();
    for (const auto& [command, action] : actions_) {
        const app::CommandState now = app::commandState(command, state);
        action->setVisible(now.visible && handlers_.has(command));
        action->setEnabled(now.enabled && handlers_.has(command));
        action->setCheckable(now.checkable);
        action->setChecked(now.checked);
        action->setText(toQString(now.text));
    }
    hideEmptyMenus();
}

void CommandActions::hideEmptyMenus() {
    for (QMenu* menu : menus_) {
        const auto actions = menu->actions();
        menu->menuAction()->setVisible(std::ranges::any_of(
            actions, [](const QAction* action) { return action->isVisible() && !action->isSeparator(); }));
    }
}

QMenu* CommandActions::makeMenu(app::Menu menu, QWidget* parent) {
    const auto rows = app::menuTable();
    const auto row = std::ranges::find(rows, menu, &app::MenuRow::menu);
    auto* made = new QMenu(toQString(row->title), parent);
    for (const app::CommandRow& command : app::commandTable()) {
        if (command.menu != menu)
            continue;
        if (command.separatorBefore)
            made->addSeparator();
        made->addAction(action(command.command));
    }
    for (const app::MenuRow& child : rows)
        if (child.parent == menu && child.menu != menu)
            made->insertMenu(action(app::Command::setupClients), makeMenu(child.menu, made));
    QObject::connect(made, &QMenu::aboutToShow, window_, [this] { update(); });
    menus_.push_back(made);
    return made;
}

void CommandActions::fill(QMenuBar& bar) {
    for (const app::MenuRow& row : app::menuTable())
        if (row.parent == row.menu)
            bar.addMenu(makeMenu(row.menu, &bar));
}

void CommandActions::fill(QMenu& menu) {
    for (const app::MenuRow& row : app::menuTable())
        if (row.parent == row.menu)
            menu.addMenu(makeMenu(row.menu, &menu));
    QObject::connect(&menu, &QMenu::aboutToShow, window_, [this] { update(); });
}

void CommandActions::fillContextMenu(QMenu& menu) {
    using enum app::Command;
    update();
    const app::ViewState state = state_();
    if (state.selected == 0) { // beside the records there is nothing to do but to add some
        if (state.records == app::RecordKind::entries)
            menu.addAction(action(newEntry));
        else
            menu.addActions({action(newGeneralExpense), action(newMileageExpense)});
        return;
    }
    for (const app::Command command : {edit, createCopy, copyTo, createNewTimer, markBilled, markPaid, deleteSelected})
        menu.addAction(action(command));
    menu.addSeparator();
    for (const app::Command command : {copyText, selectionSummary})
        menu.addAction(action(command));
}

void CommandActions::fillPlaceMenu(QMenu& menu) {
    using enum app::Command;
    update();
    menu.addActions({action(newEntry), action(newGeneralExpense), action(newMileageExpense)});
}

} // namespace hourwright::desktop
