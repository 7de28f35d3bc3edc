#pragma once

#include "desktop/main_window.h"
#include "desktop/workspace.h"

#include <QString>
#include <functional>
#include <span>
#include <vector>

/// Pictures of every window with made-up records, for the documents and for looking at them.
namespace hourwright::desktop {

/// One picture: its file name without ending, and what makes the window to be drawn. The window's parent is the main
/// window; a function that returns the main window itself has brought it into the wanted state.
struct Screen {
    QString name;
    std::function<QWidget*(MainWindow& window)> make;
};

/// All pictures; each function adds those of its group, in the file of its name.
[[nodiscard]] std::vector<Screen> allScreens();

void addHistoryScreens(std::vector<Screen>& screens);
void addMainScreens(std::vector<Screen>& screens);
void addEditorScreens(std::vector<Screen>& screens);
void addNoteScreens(std::vector<Screen>& screens);
void addStructureScreens(std::vector<Screen>& screens);
void addExpenseScreens(std::vector<Screen>& screens);
void addTimerScreens(std::vector<Screen>& screens);
void addExportScreens(std::vector<Screen>& screens);
void addOptionsScreens(std::vector<Screen>& screens);

} // namespace hourwright::desktop
