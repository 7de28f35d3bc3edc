#include "app/bulk_selection.h"
#include "app/copy_notice.h"
#include "billing/bulk_change.h"
#include "billing/structure_deletion.h"
#include "desktop/bulk/bulk_run.h"
#include "desktop/bulk/criteria_dialog.h"
#include "desktop/bulk/paid_date_dialog.h"
#include "desktop/bulk/replace_dialog.h"
#include "desktop/commands/commands.h"
#include "desktop/copies/copies_dialog.h"
#include "desktop/main_window.h"
#include "resources/texts/bulk.h"

namespace hourwright::desktop {

using app::BulkKind;
using app::Command;
using billing::EntrySelection;
using resources::StringId;

namespace {

namespace texts = resources::bulk;

// The selection, which needs a locale of the thread that uses it.
using Selecting = std::function<EntrySelection(const platform::Locale&)>;

std::optional<Selecting> askForCriteria(MainWindow& window, BulkKind kind) {
    CriteriaDialog dialog(window.workspace(), kind, &window);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return
        [criteria = dialog.criteria()](const platform::Locale& locale) { return app::selectionOf(criteria, locale); };
}

std::optional<platform::FileTime> askForPaidDate(MainWindow& window) {
    PaidDateDialog dialog(window.workspace(), &window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.paidDate()) : std::nullopt;
}

void markPaid(MainWindow& window, const Selecting& select, platform::FileTime paidDate) {
    auto& workspace = window.workspace();
    runBulk(workspace, &window, texts::markPaid.text, StringId::entriesMatched,
            [&select, paidDate, now = workspace.clock().now()](const BulkParts& parts) {
                return billing::markAllPaid(parts.transaction, parts.stores.entries(), select(parts.locale), paidDate,
                                            now, parts.progress);
            });
}

void markPaidByCriteria(MainWindow& window) {
    const auto select = askForCriteria(window, BulkKind::markPaid);
    if (!select)
        return;
    if (const auto paidDate = askForPaidDate(window))
        markPaid(window, *select, *paidDate);
}

void markBilledByCriteria(MainWindow& window) {
    const auto select = askForCriteria(window, BulkKind::markBilled);
    if (!select)
        return;
    auto& workspace = window.workspace();
    runBulk(workspace, &window, texts::markBilled.text, StringId::entriesMatched,
            [&select, now = workspace.clock().now()](const BulkParts& parts) {
                return billing::markAllBilled(parts.transaction, parts.stores.entries(), (*select)(parts.locale), now,
                                              parts.progress);
            });
}

void markViewPaid(MainWindow& window) {
    auto& workspace = window.workspace();
    const auto select = [period = workspace.view().period(), filter = workspace.entryFilter()](
                            const platform::Locale& locale) { return app::selectionOf(period, filter, locale); };
    if (workspace.messages().ask(StringId::markAllPaid))
        markPaid(window, select, workspace.clock().now());
}

void deleteByCriteria(MainWindow& window) {
    const auto select = askForCriteria(window, BulkKind::remove);
    if (!select)
        return;
    auto& workspace = window.workspace();
    const platform::Message question{.id = StringId::deleteByCriteria,
                                     .text = std::u16string(resources::string(StringId::deleteByCriteria)),
                                     .icon = platform::Icon::warning,
                                     .buttons = platform::Buttons::okCancel,
                                     .defaultAnswer = platform::Answer::cancel};
    if (workspace.messages().show(question) != platform::Answer::ok)
        return;
    runBulk(workspace, &window, texts::deleteEntries.text, StringId::entriesDeleted, [&select](const BulkParts& parts) {
        return billing::deleteAll(parts.transaction, parts.stores.entries(), (*select)(parts.locale), parts.progress);
    });
}

void removeAllData(Workspace& workspace) {
    switch (billing::askAndWipeAll(workspace.stores(), workspace.messages())) {
    case billing::Deletion::done: emit workspace.recordsChanged(); break;
    case billing::Deletion::failed: workspace.showStoreError(); break;
    case billing::Deletion::declined: break;
    }
}

// The file of the records is put in place by the next start; when there is to be none now, the wish is off.
void showCopies(MainWindow& window) {
    CopiesDialog dialog(window.workspace(), &window);
    dialog.exec();
    if (dialog.wantsRestart() && !window.close())
        app::forgetWishedCopy(window.workspace().registry());
}

} // namespace

void addDataCommands(MainWindow& window) {
    auto& commands = window.commands();
    commands.set(Command::markPaidEntries, [&window] { markPaidByCriteria(window); });
    commands.set(Command::markBilledEntries, [&window] { markBilledByCriteria(window); });
    commands.set(Command::markViewPaid, [&window] { markViewPaid(window); });
    commands.set(Command::deleteByCriteria, [&window] { deleteByCriteria(window); });
    commands.set(Command::replaceFieldText, [&window] { ReplaceDialog(window.workspace(), &window).exec(); });
    commands.set(Command::copies, [&window] { showCopies(window); });
    commands.set(Command::removeAllData, [&window] { removeAllData(window.workspace()); });
}

} // namespace hourwright::desktop
