#include "app/arrange.h"
#include "app/column_layout.h"
#include "app/settings_rules.h"
#include "cli/entry_output.h"
#include "cli/filter_option.h"
#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/period_option.h"
#include "cli/text_table.h"
#include "store/date_walk.h"

#include <algorithm>

namespace hourwright::cli {

namespace {

using store::ReadResult;
using store::TimeEntry;

constexpr bool areTheArrangements(std::string_view choices) {
    std::size_t count = 0;
    bool same = true;
    forEachChoice(choices, [&](std::string_view choice) {
        same = same && count < app::entryArrangements.size() && app::entryArrangements[count].name == choice;
        ++count;
    });
    return same && count == app::entryArrangements.size();
}
static_assert(areTheArrangements(option::entryArrangeChoices));

/// Which entries to print, and in which order.
struct Listing {
    store::DateRange range;
    app::EntryFilter filter;
    std::uint16_t arrangement = 0;
};

// The instants that the options ask for; nothing, with the message shown, when the period does not exist.
std::optional<store::DateRange> rangeOption(Session& session, const Arguments& arguments) {
    if (arguments.has(option::all))
        return store::DateRange{};
    const auto period = periodOption(session, arguments);
    return period ? std::optional(period->dateRange()) : std::nullopt;
}

std::optional<Listing> listingOption(Session& session, const Arguments& arguments) {
    const auto range = rangeOption(session, arguments);
    auto filter = range ? entryFilterOption(session, arguments) : std::nullopt;
    if (!filter)
        return std::nullopt;
    const auto choice = arguments.value(option::arrange);
    const std::uint16_t arrangement = choice ? choiceOf(*choice, option::entryArrangeChoices) : session.settings().sort;
    return Listing{*range, std::move(*filter), arrangement};
}

// Numbers of the cells that are named in a list with commas; nothing, and the name in `unknown`, when there is none.
std::optional<std::vector<std::size_t>> cellsOf(std::string_view names, std::string_view& unknown) {
    const std::vector<EntryCell> cells = entryCells();
    std::vector<std::size_t> numbers;
    for (;;) {
        const std::size_t comma = names.find(',');
        const std::string_view name = names.substr(0, comma);
        const auto cell = std::ranges::find(cells, name, &EntryCell::name);
        if (cell == cells.end()) {
            unknown = name;
            return std::nullopt;
        }
        numbers.push_back(static_cast<std::size_t>(cell - cells.begin()));
        if (comma == std::string_view::npos)
            return numbers;
        names.remove_prefix(comma + 1);
    }
}

// Id and status, then the columns as the user arranged them.
std::vector<std::size_t> storedCells(Session& session) {
    static_cast<void>(session.settings()); // before loading makes their key, by which they tell a first run
    std::vector<std::size_t> numbers{0, 1};
    for (const std::uint32_t column : app::loadColumnLayout(session.registry(), app::ColumnList::entries).order)
        numbers.push_back(firstColumnCell + column);
    return numbers;
}

// Calls `visit` with each entry that passes, in the order of the store; false when reading failed.
template<typename Visitor>
bool walk(Session& session, store::Stores& stores, const Listing& listing, Visitor visit) {
    const app::EntryMatcher matcher(listing.filter, *session.locales().user);
    store::DateWalk entries(stores.entries(), listing.range);
    TimeEntry entry;
    ReadResult result = ReadResult::ok;
    while (!session.out().failed() && (result = entries.next(entry)) == ReadResult::ok)
        if (matcher.matches(entry))
            visit(entry);
    return result != ReadResult::failed;
}

// The same in the order of the listing, for which entries are kept in memory when they are to be sorted.
template<typename Visitor>
bool walkArranged(Session& session, store::Stores& stores, const Listing& listing, Visitor visit) {
    if (listing.arrangement == 0)
        return walk(session, stores, listing, visit);
    std::vector<TimeEntry> entries;
    const bool read = walk(session, stores, listing, [&](const TimeEntry& entry) { entries.push_back(entry); });
    app::arrange(entries, listing.arrangement, *session.locales().user);
    std::ranges::for_each(entries, visit);
    return read;
}

bool listJson(Session& session, store::Stores& stores, const Listing& listing) {
    EntryOutput output(app::timeRules(session.settings()));
    JsonWriter json(session.out());
    json.beginArray();
    const bool read =
        walkArranged(session, stores, listing, [&](const TimeEntry& entry) { output.writeJson(json, entry); });
    json.endArray().finish();
    return read;
}

bool listTable(Session& session, store::Stores& stores, const Listing& listing,
               const std::vector<std::size_t>& numbers) {
    const EntryOutput output(app::timeRules(session.settings()));
    const platform::Locale& locale = *session.locales().user;
    const std::vector<EntryCell> cells = entryCells();
    std::vector<TableColumn> columns;
    for (const std::size_t number : numbers)
        columns.push_back({cells[number].title, cells[number].alignRight});
    TextTable table(session.out(), std::move(columns));
    const bool read = walkArranged(session, stores, listing, [&](const TimeEntry& entry) {
        std::vector<std::string> row;
        for (const std::size_t number : numbers)
            row.push_back(output.cell(entry, number, locale));
        table.add(std::move(row));
    });
    table.finish();
    return read;
}

} // namespace

ExitCode entryList(Session& session, const Arguments& arguments) {
    std::optional<std::vector<std::size_t>> cells;
    if (const auto names = arguments.value(option::columns)) {
        std::string_view unknown;
        cells = cellsOf(*names, unknown);
        if (!cells)
            return session.misuse(joined({"unknown column '", unknown, "'"}));
    }
    const auto listing = listingOption(session, arguments);
    store::Stores* const stores = listing ? session.stores() : nullptr;
    if (!stores)
        return ExitCode::refused;
    if (!cells)
        cells = storedCells(session);
    const bool read =
        session.json() ? listJson(session, *stores, *listing) : listTable(session, *stores, *listing, *cells);
    return read ? ExitCode::done : session.failWrite();
}

} // namespace hourwright::cli
