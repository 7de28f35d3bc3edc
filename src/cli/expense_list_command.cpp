#include "app/arrange.h"
#include "app/column_layout.h"
#include "cli/display_width.h"
#include "cli/expense_output.h"
#include "cli/filter_option.h"
#include "cli/handlers.h"
#include "cli/period_option.h"
#include "cli/property_output.h"
#include "cli/record_access.h"
#include "cli/record_values.h"
#include "exchange/record_json.h"
#include "platform/number_text.h"
#include "platform/utf.h"
#include "store/date_walk.h"

#include <algorithm>

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
    std::uint16_t arrangement = 0;
};

std::optional<Listing> listingOption(Session& session, const Arguments& arguments) {
    const auto range = rangeOption(session, arguments);
    auto filter = range ? expenseFilterOption(session, arguments) : std::nullopt;
    if (!filter)
        return std::nullopt;
    return Listing{*range, std::move(*filter), session.settings().expSort};
}

// Calls `visit` with each expense that passes, in the order of the store; false when reading failed.
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

// The same in the order of the listing, for which expenses are kept in memory when they are to be sorted.
template<typename Visitor>
bool walkArranged(Session& session, store::Stores& stores, const Listing& listing, Visitor visit) {
    if (listing.arrangement == 0)
        return walk(session, stores, listing, visit);
    std::vector<ExpenseEntry> expenses;
    const bool read = walk(session, stores, listing, [&](const ExpenseEntry& expense) { expenses.push_back(expense); });
    app::arrange(expenses, listing.arrangement, *session.locales().user);
    std::ranges::for_each(expenses, visit);
    return read;
}

bool listJson(Session& session, store::Stores& stores, const Listing& listing) {
    JsonWriter json(session.out());
    json.beginArray();
    const bool read =
        walkArranged(session, stores, listing, [&](const ExpenseEntry& expense) { exchange::writeJson(json, expense); });
    json.endArray().finish();
    return read;
}

bool listTable(Session& session, store::Stores& stores, const Listing& listing) {
    const platform::Locale& locale = *session.locales().user;
    static_cast<void>(session.settings()); // before loading makes their key, by which they tell a first run
    const auto columns = app::loadColumnLayout(session.registry(), app::ColumnList::expenses).order;
    TextTable table(session.out(), expenseCellTitles(columns));
    const bool read = walkArranged(session, stores, listing, [&](const ExpenseEntry& expense) {
        table.add(expenseCells(expense, columns, locale));
    });
    table.finish();
    return read;
}

// One line a field; the note, which may have lines of its own, stands last.
void showLines(Session& session, const ExpenseEntry& expense) {
    const platform::Locale& locale = *session.locales().user;
    const auto columns = app::builtInColumnLayout(app::ColumnList::expenses).order;
    const auto titles = expenseCellTitles(columns);
    const auto cells = expenseCells(expense, columns, locale);
    Output& out = session.out();
    for (std::size_t i = 0; i < titles.size(); ++i)
        writeField(out, titles[i].title, cells[i]);
    if (expense.type == store::ExpenseType::mileage)
        writeField(out, "Rate", platform::hundredths(expense.amount));
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
        exchange::writeJson(json, expense);
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
