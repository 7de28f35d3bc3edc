#include "app/bulk_selection.h"
#include "billing/bulk_change.h"
#include "billing/structure_deletion.h"
#include "desktop/bulk/bulk_run.h"
#include "desktop/bulk/criteria_dialog.h"
#include "desktop/bulk/paid_date_dialog.h"
#include "desktop/bulk/replace_dialog.h"
#include "desktop/commands/commands.h"
#include "desktop/main_window.h"
#include "resources/texts/bulk.h"

namespace hourwright::desktop {

using app::BulkKind;
using app::Command;
using billing::EntrySelection;
using resources::StringId;

namespace {

namespace texts = resources::bulk;

std::optional<EntrySelection> askForCriteria(MainWindow& window, BulkKind kind) {
    CriteriaDialog dialog(window.workspace(), kind, &window);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return app::selectionOf(dialog.criteria(), window.workspace().locale());
}

std::optional<platform::FileTime> askForPaidDate(MainWindow& window) {
    PaidDateDialog dialog(window.workspace(), &window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.paidDate()) : std::nullopt;
}

void markPaid(MainWindow& window, const EntrySelection& selection, platform::FileTime paidDate) {
    auto& workspace = window.workspace();
    runBulk(workspace, &window, texts::markPaid.text, StringId::entriesMatched,
            [&](platform::Transaction& transaction, const billing::BulkProgress& progress) {
                return billing::markAllPaid(transaction, workspace.stores().entries(), selection, paidDate,
                                            workspace.clock().now(), progress);
            });
}

void markPaidByCriteria(MainWindow& window) {
    const auto selection = askForCriteria(window, BulkKind::markPaid);
    if (!selection)
        return;
    if (const auto paidDate = askForPaidDate(window))
        markPaid(window, *selection, *paidDate);
}

void markBilledByCriteria(MainWindow& window) {
    const auto selection = askForCriteria(window, BulkKind::markBilled);
    if (!selection)
        return;
    auto& workspace = window.workspace();
    runBulk(workspace, &window, texts::markBilled.text, StringId::entriesMatched,
            [&](platform::Transaction& transaction, const billing::BulkProgress& progress) {
                return billing::markAllBilled(transaction, workspace.stores().entries(), *selection,
                                              workspace.clock().now(), progress);
            });
}

void markViewPaid(MainWindow& window) {
    auto& workspace = window.workspace();
    if (workspace.messages().ask(StringId::markAllPaid, platform::Icon::question))
        markPaid(window, app::selectionOf(workspace.view().period(), workspace.entryFilter(), workspace.locale()),
                 workspace.clock().now());
}

void deleteByCriteria(MainWindow& window) {
    const auto selection = askForCriteria(window, BulkKind::remove);
    if (!selection)
        return;
    auto& workspace = window.workspace();
    const platform::Message question{.id = StringId::deleteByCriteria,
                                     .text = std::u16string(resources::string(StringId::deleteByCriteria)),
                                     .icon = platform::Icon::warning,
                                     .buttons = platform::Buttons::okCancel,
                                     .defaultAnswer = platform::Answer::cancel};
    if (workspace.messages().show(question) != platform::Answer::ok)
        return;
    runBulk(workspace, &window, texts::deleteEntries.text, StringId::entriesDeleted,
            [&](platform::Transaction& transaction, const billing::BulkProgress& progress) {
                return billing::deleteAll(transaction, workspace.stores().entries(), *selection, progress);
            });
}

void removeAllData(Workspace& workspace) {
    switch (billing::askAndWipeAll(workspace.stores(), workspace.messages())) {
    case billing::Deletion::done: emit workspace.recordsChanged(); break;
    case billing::Deletion::failed: workspace.showStoreError(); break;
    case billing::Deletion::declined: break;
    }
}

} // namespace

void addDataCommands(MainWindow& window) {
    auto& commands = window.commands();
    commands.set(Command::markPaidEntries, [&window] { markPaidByCriteria(window); });
    commands.set(Command::markBilledEntries, [&window] { markBilledByCriteria(window); });
    commands.set(Command::markViewPaid, [&window] { markViewPaid(window); });
    commands.set(Command::deleteByCriteria, [&window] { deleteByCriteria(window); });
    commands.set(Command::replaceFieldText, [&window] { ReplaceDialog(window.workspace(), &window).exec(); });
    commands.set(Command::removeAllData, [&window] { removeAllData(window.workspace()); });
}

} // namespace hourwright::desktop
