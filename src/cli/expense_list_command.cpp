#include "cli/display_width.h"
#include "cli/expense_output.h"
#include "cli/filter_option.h"
#include "cli/handlers.h"
#include "cli/period_option.h"
#include "cli/property_output.h"
#include "cli/record_access.h"
#include "cli/record_values.h"
#include "platform/number_text.h"
#include "platform/utf.h"
#include "store/date_walk.h"

namespace hourwright::cli {

namespace {

using store::ExpenseEntry;
using store::ReadResult;

// The instants that the options ask for; nothing, with the message shown, when the period does not exist.
std::optional<store::DateRange> rangeOption(Session& session, const Arguments& arguments) {
    if (arguments.has(option::all))
        return store::DateRange{};
    const auto period = periodOption(session, arguments, PeriodView::expenses);
    return period ? std::optional(period->dateRange()) : std::nullopt;
}

// Which expenses to print.
struct Listing {
    store::DateRange range;
    app::ExpenseFilter filter;
};

std::optional<Listing> listingOption(Session& session, const Arguments& arguments) {
    const auto range = rangeOption(session, arguments);
    auto filter = range ? expenseFilterOption(session, arguments) : std::nullopt;
    return filter ? std::optional(Listing{*range, std::move(*filter)}) : std::nullopt;
}

// Calls `visit` with each expense of the listing; false when reading failed.
template<typename Visitor>
bool walk(Session& session, store::Stores& stores, const Listing& listing, Visitor visit) {
    const app::ExpenseMatcher matcher(listing.filter, *session.locales().user);
    store::DateWalk expenses(stores.expenses(), listing.range);
    ExpenseEntry expense;
    ReadResult result = ReadResult::ok;
    while (!session.out().failed() && (result = expenses.next(expense)) == ReadResult::ok)
        if (matcher.matches(expense))
            visit(expense);
    return result != ReadResult::failed;
}

bool listJson(Session& session, store::Stores& stores, const Listing& listing) {
    JsonWriter json(session.out());
    json.beginArray();
    const bool read = walk(session, stores, listing, [&](const ExpenseEntry& expense) { writeExpense(json, expense); });
    json.endArray().finish();
    return read;
}

bool listTable(Session& session, store::Stores& stores, const Listing& listing) {
    const platform::Locale& locale = *session.locales().user;
    TextTable table(session.out(), expenseCellTitles());
    const bool read =
        walk(session, stores, listing, [&](const ExpenseEntry& expense) { table.add(expenseCells(expense, locale)); });
    table.finish();
    return read;
}

// One line a field; the note, which may have lines of its own, stands last.
void showLines(Session& session, const ExpenseEntry& expense) {
    const platform::Locale& locale = *session.locales().user;
    const auto titles = expenseCellTitles();
    const auto cells = expenseCells(expense, locale);
    Output& out = session.out();
    for (std::size_t i = 0; i < titles.size(); ++i)
        writeField(out, titles[i].title, cells[i]);
    if (expense.type == store::ExpenseType::mileage) {
        writeField(out, "Start Odo", std::to_string(expense.startOdometer));
        writeField(out, "End Odo", std::to_string(store::endOdometer(expense)));
        writeField(out, "Rate", platform::hundredths(expense.amount));
    }
    writeField(out, "Bill To", cellText(expense.billTo));
    writeField(out, "Custom 1", cellText(expense.custom1));
    writeField(out, "Custom 2", cellText(expense.custom2));
    writeField(out, "Paid Date", shortDateText(locale, expense.paidDate));
    writeField(out, "Note", platform::printableUtf8(expense.note));
}

} // namespace

ExitCode expenseShow(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    ExpenseEntry expense;
    if (!stores || !readExpense(session, *stores, recordIdOf(arguments.positionals().front()), expense))
        return ExitCode::refused;
    if (arguments.has(option::properties))
        return showProperties(session, stores->expenses());
    if (session.json()) {
        JsonWriter json(session.out());
        writeExpense(json, expense);
        json.finish();
    } else {
        showLines(session, expense);
    }
    return ExitCode::done;
}

ExitCode expenseList(Session& session, const Arguments& arguments) {
    const auto listing = listingOption(session, arguments);
    store::Stores* const stores = listing ? session.stores() : nullptr;
    if (!stores)
        return ExitCode::refused;
    const bool read = session.json() ? listJson(session, *stores, *listing) : listTable(session, *stores, *listing);
    return read ? ExitCode::done : session.fail(stores->expenses().lastError());
}

} // namespace hourwright::cli
