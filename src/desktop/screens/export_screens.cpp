#include "billing/summary_breakdown.h"
#include "desktop/exports/export_dialogs.h"
#include "desktop/exports/export_note.h"
#include "desktop/screens/screens.h"
#include "desktop/summaries/breakdown_dialog.h"
#include "desktop/summaries/summary_dialog.h"

namespace hourwright::desktop {

void addExportScreens(std::vector<Screen>& screens) {
    screens.push_back({"export-other", [](MainWindow& window) -> QWidget* {
                           return new OtherExportDialog(window.workspace(), &window);
                       }});
    screens.push_back({"export-expenses", [](MainWindow& window) -> QWidget* {
                           return new ExpenseTypeDialog(window.workspace(), &window);
                       }});
    screens.push_back({"export-done", [](MainWindow& window) -> QWidget* {
                           return new ExportNote(window.workspace(), "/home/ada/Documents/hourwright-2026-11-16.csv",
                                                 1234, &window);
                       }});
    screens.push_back({"summary-client", [](MainWindow& window) -> QWidget* {
                           return new ClientSummaryDialog(window.workspace(), {}, &window);
                       }});
    screens.push_back({"summary-breakdown", [](MainWindow& window) -> QWidget* {
                           auto& workspace = window.workspace();
                           const billing::EntrySelection all{.range = {}, .accepts = {}};
                           const auto breakdown = billing::breakDown(workspace.stores().entries(), all,
                                                                     workspace.timeRules(), workspace.locale());
                           return new BreakdownDialog(workspace, breakdown.value_or(billing::Breakdown{}), &window);
                       }});
}

} // namespace hourwright::desktop
