#include "desktop/commands/commands.h"
#include "desktop/exports/export_dialogs.h"
#include "desktop/exports/view_export.h"
#include "desktop/main_window.h"
#include "exchange/csv_export.h"
#include "exchange/iso_dates.h"
#include "exchange/other_exports.h"
#include "exchange/xml_export.h"
#include "platform/utf.h"
#include "resources/texts/exports.h"

namespace hourwright::desktop {

namespace {

using app::Command;
using exchange::ExportResult;
namespace exports = resources::exports;

// The file that the user chose: it starts in the folder of the settings and is named after the period.
std::optional<platform::SaveChoice> askForFile(Workspace& workspace, const resources::Text& title,
                                               const resources::Text& filter, std::u16string extension) {
    const auto first = platform::toSystemTime(workspace.view().period().start());
    const std::string day = first ? exchange::dateText(*first) : std::string();
    const std::u16string name = u"hourwright-" + platform::toUtf16(day) + u'.' + extension;
    return workspace.fileDialogs().save({.title = std::u16string(title.text),
                                         .folder = workspace.settings().dataPath.text(),
                                         .fileName = name,
                                         .kinds = platform::fileKinds(filter.text),
                                         .extension = std::move(extension)});
}

bool showsExpenses(Workspace& workspace) {
    return workspace.view().records() == app::RecordKind::expenses;
}

// The one type that the expense view shows, or the one that the user chooses of both; nothing when cancelled.
std::optional<store::ExpenseType> expenseType(MainWindow& window) {
    const auto filtered = window.workspace().expenseFilter().type;
    if (filtered == 0 || filtered == 1)
        return static_cast<store::ExpenseType>(filtered);
    ExpenseTypeDialog dialog(window.workspace(), &window);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.type();
}

void exportExpensesAsCsv(MainWindow& window) {
    auto& workspace = window.workspace();
    const auto type = expenseType(window);
    const auto choice = type ? askForFile(workspace, exports::csvTitle, exports::csvFilter, u"csv") : std::nullopt;
    if (!choice)
        return;
    const auto options = exchange::csvOptions(workspace.settings());
    runViewExport(workspace, &window, choice->file, [&](const ViewExport& run) {
        return exchange::exportExpenses(run.stores.expenses(), *type, run.range, run.acceptsExpense, options,
                                        run.target);
    });
}

void exportEntriesAsCsv(MainWindow& window) {
    auto& workspace = window.workspace();
    const auto choice = askForFile(workspace, exports::csvTitle, exports::csvFilter, u"csv");
    if (!choice)
        return;
    const auto options = exchange::csvOptions(workspace.settings());
    runViewExport(workspace, &window, choice->file, [&](const ViewExport& run) {
        return exchange::exportTimeEntries(run.stores.entries(), run.range, run.acceptsEntry, options, run.target);
    });
}

void exportXml(MainWindow& window) {
    auto& workspace = window.workspace();
    const auto choice = askForFile(workspace, exports::xmlTitle, exports::xmlFilter, u"xml");
    if (!choice)
        return;
    const auto options = exchange::xmlOptions(workspace.settings());
    runViewExport(workspace, &window, choice->file, [&](const ViewExport& run) {
        return exchange::exportXml(run.stores.entries(), run.range, run.acceptsEntry, options, run.target);
    });
}

// What the user chose for another program.
struct OtherExport {
    OtherForm form;
    exchange::SpreadsheetOptions options;
    billing::TimeRules rules;
    platform::ClockReading now;
};

ExportResult exportEntriesTo(const OtherExport& other, const ViewExport& run) {
    auto& entries = run.stores.entries();
    switch (other.form) {
    case OtherForm::json: return exchange::exportJson(entries, run.range, run.acceptsEntry, other.rules, run.target);
    case OtherForm::calendar:
        return exchange::exportCalendar(entries, run.range, run.acceptsEntry, other.now, run.target);
    case OtherForm::spreadsheet: break;
    }
    return exchange::exportSpreadsheet(entries, run.range, run.acceptsEntry, other.options, run.target);
}

ExportResult exportExpensesTo(const OtherExport& other, const ViewExport& run) {
    auto& expenses = run.stores.expenses();
    if (other.form == OtherForm::json)
        return exchange::exportJson(expenses, run.range, run.acceptsExpense, run.target);
    return exchange::exportSpreadsheet(expenses, run.range, run.acceptsExpense, other.options, run.target);
}

std::u16string extensionOf(OtherForm form) {
    switch (form) {
    case OtherForm::json: return u"json";
    case OtherForm::calendar: return u"ics";
    case OtherForm::spreadsheet: break;
    }
    return u"csv";
}

// The kinds of the save dialog stand in the order of the forms; only the one chosen is offered.
void exportForOthers(MainWindow& window) {
    auto& workspace = window.workspace();
    OtherExportDialog dialog(workspace, &window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    OtherExport other{dialog.form(), dialog.options(), workspace.timeRules(), workspace.clock().read()};
    other.options.csv = exchange::csvOptions(workspace.settings());
    const auto kinds = platform::fileKinds(exports::otherFilter.text);
    const auto& kind = kinds[static_cast<std::size_t>(other.form)];
    const std::u16string filter = kind.name + u'|' + kind.pattern + u'|';
    const auto choice =
        askForFile(workspace, exports::otherTitle, {exports::otherFilter.number, filter}, extensionOf(other.form));
    if (!choice)
        return;
    const bool expenses = showsExpenses(workspace);
    runWholeViewExport(workspace, &window, choice->file, [&](const ViewExport& run) {
        return expenses ? exportExpensesTo(other, run) : exportEntriesTo(other, run);
    });
}

} // namespace

void addExportCommands(MainWindow& window) {
    window.commands().set(Command::exportCsv, [&window] {
        if (showsExpenses(window.workspace()))
            exportExpensesAsCsv(window);
        else
            exportEntriesAsCsv(window);
    });
    window.commands().set(Command::exportXml, [&window] { exportXml(window); });
    window.commands().set(Command::exportMore, [&window] { exportForOthers(window); });
}

} // namespace hourwright::desktop
