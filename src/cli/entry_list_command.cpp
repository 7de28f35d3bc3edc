#include "app/settings_rules.h"
#include "cli/display_width.h"
#include "cli/entry_output.h"
#include "cli/entry_records.h"
#include "cli/handlers.h"
#include "cli/period_option.h"
#include "cli/property_output.h"
#include "cli/record_values.h"
#include "cli/text_table.h"
#include "platform/number_text.h"
#include "platform/utf.h"
#include "store/date_walk.h"

namespace hourwright::cli {

namespace {

using resources::StringId;
using store::ReadResult;
using store::TimeEntry;

// The instants that the options ask for; nothing, with the message shown, when the period does not exist.
std::optional<store::DateRange> rangeOption(Session& session, const Arguments& arguments) {
    if (arguments.has(option::all))
        return store::DateRange{};
    const auto period = periodOption(session, arguments);
    return period ? std::optional(period->dateRange()) : std::nullopt;
}

// Calls `visit` with each entry of the range; false when reading failed.
template<typename Visitor>
bool walk(Session& session, store::Stores& stores, const store::DateRange& range, Visitor visit) {
    store::DateWalk entries(stores.entries(), range);
    TimeEntry entry;
    ReadResult result = ReadResult::ok;
    while (!session.out().failed() && (result = entries.next(entry)) == ReadResult::ok)
        visit(entry);
    return result != ReadResult::failed;
}

bool listJson(Session& session, store::Stores& stores, const store::DateRange& range) {
    EntryOutput output(app::timeRules(session.settings()));
    JsonWriter json(session.out());
    json.beginArray();
    const bool read = walk(session, stores, range, [&](const TimeEntry& entry) { output.writeJson(json, entry); });
    json.endArray().finish();
    return read;
}

bool listTable(Session& session, store::Stores& stores, const store::DateRange& range) {
    const EntryOutput output(app::timeRules(session.settings()));
    const platform::Locale& locale = *session.locales().user;
    std::vector<TableColumn> columns;
    for (const CellTitle& title : entryCellTitles())
        columns.push_back({title.title, title.alignRight});
    TextTable table(session.out(), std::move(columns));
    const bool read =
        walk(session, stores, range, [&](const TimeEntry& entry) { table.add(output.cells(entry, locale)); });
    table.finish();
    return read;
}

// One line a field; the note, which may have lines of its own, stands last.
void showLines(Session& session, const TimeEntry& entry) {
    EntryOutput output(app::timeRules(session.settings()));
    const platform::Locale& locale = *session.locales().user;
    const auto titles = entryCellTitles();
    const auto cells = output.cells(entry, locale);
    for (std::size_t i = 0; i < titles.size(); ++i)
        writeField(session.out(), titles[i].title, cells[i]);
    writeField(session.out(), "Break", platform::hundredths(entry.breakTime));
    writeField(session.out(), "Paid Date", shortDateText(locale, entry.paidDate));
    writeField(session.out(), cellText(resources::string(StringId::columnNote)),
               platform::printableUtf8(output.noteText(entry)));
}

} // namespace

ExitCode entryShow(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    TimeEntry entry;
    if (!stores || !readEntry(session, *stores, recordIdOf(arguments.positionals().front()), entry))
        return ExitCode::refused;
    if (arguments.has(option::properties))
        return showProperties(session, stores->entries());
    if (session.json()) {
        JsonWriter json(session.out());
        EntryOutput(app::timeRules(session.settings())).writeJson(json, entry);
        json.finish();
    } else {
        showLines(session, entry);
    }
    return ExitCode::done;
}

ExitCode entryList(Session& session, const Arguments& arguments) {
    const auto range = rangeOption(session, arguments);
    store::Stores* const stores = range ? session.stores() : nullptr;
    if (!stores)
        return ExitCode::refused;
    const bool read = session.json() ? listJson(session, *stores, *range) : listTable(session, *stores, *range);
    return read ? ExitCode::done : session.failWrite();
}

} // namespace hourwright::cli
