#include "cli/entry_output.h"

#include "app/entry_columns.h"
#include "cli/display_width.h"
#include "cli/record_values.h"
#include "resources/strings.h"

namespace hourwright::cli {

using resources::StringId;
using store::TimeEntry;

std::string EntryOutput::cell(const TimeEntry& entry, std::size_t number, const platform::Locale& locale) const {
    if (number == 0)
        return std::to_string(static_cast<std::uint32_t>(entry.id));
    if (number < firstColumnCell)
        return statusText(entry.status);
    return cellText(app::cellText(entry, number - firstColumnCell, locale, rules_));
}

std::vector<EntryCell> entryCells() {
    std::vector<EntryCell> cells{{"id", "ID", true}, {"status", cellText(resources::string(StringId::columnStatus))}};
    for (const app::EntryColumn& column : app::entryColumns())
        cells.push_back({column.name, cellText(resources::string(column.title)), column.alignRight});
    return cells;
}

} // namespace hourwright::cli
