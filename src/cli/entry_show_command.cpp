#include "app/settings_rules.h"
#include "cli/display_width.h"
#include "cli/entry_output.h"
#include "cli/entry_records.h"
#include "cli/handlers.h"
#include "cli/property_output.h"
#include "cli/record_values.h"
#include "platform/number_text.h"
#include "platform/utf.h"

namespace hourwright::cli {

namespace {

using resources::StringId;
using store::ReadResult;
using store::TimeEntry;

// One line a field; the note, which may have lines of its own, stands last.
void showLines(Session& session, const TimeEntry& entry) {
    EntryOutput output(app::timeRules(session.settings()));
    const platform::Locale& locale = *session.locales().user;
    const auto cells = entryCells();
    for (std::size_t number = 0; number < cells.size(); ++number)
        writeField(session.out(), cells[number].title, output.cell(entry, number, locale));
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

} // namespace hourwright::cli
