#pragma once

namespace hourwright::desktop {

class MainWindow;

/// Fills in what the commands of the main window do; one function for each group, in the file of its name.
void addAllCommands(MainWindow& window);

void addHistoryCommands(MainWindow& window);
void addListCommands(MainWindow& window);
void addViewCommands(MainWindow& window);
void addDemo(MainWindow& window);
void addEntryCommands(MainWindow& window);
void addSetupCommands(MainWindow& window);
void addExpenseCommands(MainWindow& window);
void addExportCommands(MainWindow& window);
void addSummaryCommands(MainWindow& window);
void addFilterCommands(MainWindow& window);
void addOptionsCommands(MainWindow& window);
void addDataCommands(MainWindow& window);

} // namespace hourwright::desktop
