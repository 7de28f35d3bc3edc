#include "billing/quick_summary.h"
#include "desktop/commands/commands.h"
#include "desktop/main_window.h"
#include "desktop/period_bar.h"
#include "desktop/summaries/breakdown_dialog.h"
#include "desktop/summaries/summary_dialog.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/exports.h"

namespace hourwright::desktop {

namespace {

using app::Command;
namespace exports = resources::exports;

void open(QDialog* dialog) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->show();
}

// The entries that the current view shows. It copies the filter and borrows the workspace's locale.
billing::EntrySelection viewSelection(Workspace& workspace) {
    const app::EntryMatcher matcher(workspace.entryFilter(), workspace.locale());
    return {.range = workspace.view().period().dateRange(),
            .accepts = [matcher](const store::TimeEntry& entry) { return matcher.matches(entry); }};
}

std::u16string kindName(app::PeriodKind kind) {
    switch (kind) {
    case app::PeriodKind::day: return std::u16string(exports::day.text);
    case app::PeriodKind::week: return std::u16string(exports::week.text);
    case app::PeriodKind::month: return std::u16string(exports::month.text);
    case app::PeriodKind::custom: break;
    }
    return std::u16string(exports::custom.text);
}

// Amounts in several currencies make no sum, so each gets a row of its own instead.
std::vector<billing::SummaryRow> byCurrency(Workspace& workspace, std::vector<billing::SummaryRow> rows,
                                            const app::ViewTotals& totals) {
    if (totals.amounts.size() < 2)
        return rows;
    rows.back().value.clear();
    for (const auto& [currency, amount] : totals.amounts)
        rows.push_back({currency, workspace.locale().number(billing::amountText(amount)), 1});
    return rows;
}

void showQuickSummary(MainWindow& window) {
    auto& workspace = window.workspace();
    const app::ViewTotals totals = window.view().totals();
    std::optional<billing::QuickSummary> summary = billing::QuickSummary{.items = totals.items};
    for (const auto& [currency, amount] : totals.amounts)
        summary->amount += amount;
    if (workspace.view().records() == app::RecordKind::entries)
        summary = billing::quickSummary(workspace.stores().entries(), viewSelection(workspace), workspace.timeRules());
    if (!summary) {
        workspace.showStoreError();
        return;
    }
    const auto rows = byCurrency(
        workspace,
        billing::quickSummaryRows(*summary, kindName(workspace.view().kind()), platform::toU16(periodTitle(workspace))),
        totals);
    open(new SummaryDialog(workspace, platform::toQString(exports::quickSummary), rows, &window));
}

void showBreakdown(MainWindow& window) {
    auto& workspace = window.workspace();
    const auto breakdown = billing::breakDown(workspace.stores().entries(), viewSelection(workspace),
                                              workspace.timeRules(), workspace.locale());
    if (breakdown)
        open(new BreakdownDialog(workspace, *breakdown, &window));
    else
        workspace.showStoreError();
}

void showSelectionSummary(MainWindow& window) {
    auto& workspace = window.workspace();
    const auto ids = window.view().selection();
    store::TimeEntry entry;
    auto& entries = workspace.stores().entries();
    if (ids.empty() || entries.seek(platform::Seek::toId(ids.front())) == store::RecordId::none ||
        store::readTimeEntry(entries, entry) != store::ReadResult::ok)
        return;
    open(new ClientSummaryDialog(workspace, {entry.client, entry.project, entry.task}, &window));
}

} // namespace

void addSummaryCommands(MainWindow& window) {
    window.commands().set(Command::quickSummary, [&window] { showQuickSummary(window); });
    window.commands().set(Command::breakdown, [&window] { showBreakdown(window); });
    window.commands().set(Command::clientSummary,
                          [&window] { open(new ClientSummaryDialog(window.workspace(), {}, &window)); });
    window.commands().set(Command::selectionSummary, [&window] { showSelectionSummary(window); });
}

} // namespace hourwright::desktop
