#include "desktop/commands/commands.h"
#include "desktop/main_window.h"

#include <QApplication>
#include <QClipboard>

namespace hourwright::desktop {

namespace {

using app::Command;

void addPeriods(MainWindow& window) {
    auto& view = window.workspace().view();
    const auto setKind = [&](Command command, app::PeriodKind kind) {
        window.commands().set(command, [&window, &view, kind] {
            view.setKind(kind);
            window.showView();
        });
    };
    setKind(Command::viewDay, app::PeriodKind::day);
    setKind(Command::viewWeek, app::PeriodKind::week);
    setKind(Command::viewMonth, app::PeriodKind::month);
    const auto move = [&](Command command, bool (app::CurrentView::*step)()) {
        window.commands().set(command, [&window, &view, step] {
            (view.*step)();
            window.showView();
        });
    };
    move(Command::previousPeriod, &app::CurrentView::previous);
    move(Command::nextPeriod, &app::CurrentView::next);
    move(Command::gotoToday, &app::CurrentView::goToToday);
    window.commands().set(Command::gotoDate, [&window] { window.pickDate(); });
}

void addLayouts(MainWindow& window) {
    auto& workspace = window.workspace();
    const auto setStyle = [&](Command command, app::ListStyle style) {
        window.commands().set(command, [&workspace, style] {
            workspace.view().setListStyle(style);
            workspace.saveSettings();
        });
    };
    setStyle(Command::defaultListStyle, app::ListStyle::standard);
    setStyle(Command::simpleListStyle, app::ListStyle::simple);
    setStyle(Command::treeListStyle, app::ListStyle::tree);
    window.commands().set(Command::calendarStyle, [&workspace] {
        workspace.view().setCalendar(workspace.view().presentation() == app::Presentation::list);
        workspace.saveSettings();
    });
    window.commands().set(Command::switchRecords, [&window, &workspace] {
        const bool entries = workspace.view().records() == app::RecordKind::entries;
        workspace.view().showRecords(entries ? app::RecordKind::expenses : app::RecordKind::entries);
        window.showView();
    });
}

void addArrangements(MainWindow& window) {
    auto& workspace = window.workspace();
    for (std::uint16_t choice = 0; choice <= 8; ++choice) {
        const auto command = static_cast<Command>(static_cast<std::uint16_t>(Command::arrange0) + choice);
        window.commands().set(command, [&workspace, choice] {
            workspace.view().arrangeBy(choice);
            workspace.saveSettings();
        });
    }
}

} // namespace

void addViewCommands(MainWindow& window) {
    addPeriods(window);
    addLayouts(window);
    addArrangements(window);
    window.commands().set(Command::quit, [&window] { window.close(); });
    window.commands().set(Command::selectAll, [&window] { window.view().selectAll(); });
    window.commands().set(Command::copyText,
                          [&window] { QApplication::clipboard()->setText(window.view().selectedText()); });
}

} // namespace hourwright::desktop
