#include "app/settings_rules.h"
#include "billing/new_entry.h"
#include "cli/expense_fields.h"
#include "cli/expense_output.h"
#include "cli/handlers.h"
#include "cli/record_access.h"
#include "resources/texts/history.h"
#include "store/save.h"

namespace hourwright::cli {

namespace {

using billing::ExpenseDraft;
using store::ExpenseEntry;

ExitCode apply(Session& session, const ExpenseDraft& draft, ExpenseEntry& expense) {
    if (const auto refusal = billing::applyDraft(draft, expense))
        return showRefusal(session, *refusal);
    expense.modified = session.clock().now();
    return ExitCode::done;
}

ExitCode save(Session& session, store::Stores& stores, platform::Transaction& transaction, ExpenseEntry& expense) {
    const bool saved = store::saveExpenseEntry(transaction, stores, expense) && transaction.commit();
    return saved ? ExitCode::done : session.fail(stores.expenses().lastError());
}

} // namespace

ExitCode expenseAdd(Session& session, const Arguments& arguments) {
    ExpenseDraft draft;
    if (const auto failure = readExpenseFields(session, arguments, draft))
        return *failure;
    const store::ExpenseType type{choiceOf(arguments.positionals().front(), option::expenseTypeChoices)};
    ExpenseEntry expense =
        billing::newExpense(type, app::newEntryDefaults(session.settings()), session.clock().localTime());
    if (const ExitCode applied = apply(session, draft, expense); applied != ExitCode::done)
        return applied;
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(resources::history::addExpense);
    const ExitCode saved = transaction ? save(session, *stores, *transaction, expense) : session.failWrite();
    if (saved == ExitCode::done)
        session.out().writeLine(std::to_string(static_cast<std::uint32_t>(expense.id)));
    return saved;
}

ExitCode expenseEdit(Session& session, const Arguments& arguments) {
    ExpenseDraft draft;
    if (const auto failure = readExpenseFields(session, arguments, draft))
        return *failure;
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(resources::history::editExpense);
    if (!transaction)
        return session.failWrite();
    ExpenseEntry expense;
    if (!readExpense(session, *stores, recordIdOf(arguments.positionals().front()), expense))
        return ExitCode::refused;
    const ExitCode applied = apply(session, draft, expense);
    return applied == ExitCode::done ? save(session, *stores, *transaction, expense) : applied;
}

ExitCode expenseDelete(Session& session, const Arguments& arguments) {
    return changeRecords(session, arguments, resources::history::deleteExpenses, billing::Selected::expenses,
                         [](auto& transaction, auto& stores, auto ids) {
                             return billing::deleteRecords(transaction, stores, billing::Selected::expenses, ids);
                         });
}

} // namespace hourwright::cli
