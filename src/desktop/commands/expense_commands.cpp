#include "app/settings_rules.h"
#include "billing/new_entry.h"
#include "desktop/commands/commands.h"
#include "desktop/expenses/expense_dialog.h"
#include "desktop/main_window.h"

#include <array>

namespace hourwright::desktop {

namespace {

using store::ExpenseEntry;
using store::ExpenseType;

// Goes to where the expense can be seen and selects it.
void reveal(MainWindow& window, const ExpenseEntry& expense) {
    auto& view = window.workspace().view();
    view.showRecords(app::RecordKind::expenses);
    const bool inPeriod = expense.date >= view.period().start() && expense.date <= view.period().end();
    if (const auto day = platform::toSystemTime(expense.date); !inPeriod && day)
        view.setDate(*day);
    window.showView();
    window.select(std::array{expense.id});
}

// A new expense is shown where it belongs; one that is there already is where it was.
ExpenseDialog* open(MainWindow& window, const ExpenseEntry& expense) {
    auto* dialog = new ExpenseDialog(window.workspace(), expense, &window);
    const bool isNew = expense.id == store::RecordId::none;
    QObject::connect(dialog, &QDialog::accepted, &window, [&window, dialog, isNew] {
        if (isNew)
            reveal(window, dialog->expense());
        else
            window.select(std::array{dialog->expense().id});
    });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    return dialog;
}

void createNew(MainWindow& window, ExpenseType type, const platform::SystemTime& day) {
    auto& workspace = window.workspace();
    const auto last = type == ExpenseType::mileage ? billing::lastMileage(workspace.stores().expenses()) : std::nullopt;
    open(window, billing::newExpense(type, app::newEntryDefaults(workspace.settings()), day, last ? &*last : nullptr));
}

// The expense with this id; nothing, with the failure shown, when it cannot be read. One that is gone is no failure.
std::optional<ExpenseEntry> find(Workspace& workspace, store::RecordId id) {
    auto expense = readExpense(workspace.stores(), id);
    if (!expense)
        workspace.showStoreError();
    return expense && expense->id != store::RecordId::none ? expense : std::nullopt;
}

} // namespace

void addExpenseCommands(MainWindow& window) {
    const auto day = [&window] {
        const auto place = window.takePlace();
        return place ? place->day : window.workspace().clock().localTime();
    };
    window.expenseEditing.openNew = [&window](const EntrySeed& seed) {
        createNew(window, ExpenseType::general, seed.day);
    };
    window.commands().set(app::Command::newGeneralExpense,
                          [&window, day] { createNew(window, ExpenseType::general, day()); });
    window.commands().set(app::Command::newMileageExpense,
                          [&window, day] { createNew(window, ExpenseType::mileage, day()); });
    window.expenseEditing.edit = [&window](store::RecordId id) {
        if (const auto expense = find(window.workspace(), id))
            open(window, *expense);
    };
    window.expenseEditing.createCopy = [&window](store::RecordId id) {
        if (const auto expense = find(window.workspace(), id))
            open(window, billing::copyOf(*expense, window.workspace().clock().localTime()));
    };
    window.expenseEditing.reopen = [&window](const app::KeptExpense& kept) -> QDialog* {
        ExpenseDialog* dialog = open(window, kept.stored);
        dialog->restore(kept);
        return dialog;
    };
}

} // namespace hourwright::desktop
