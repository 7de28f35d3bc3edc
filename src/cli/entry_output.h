#pragma once

#include "billing/time_rules.h"
#include "cli/json_writer.h"
#include "exchange/record_json.h"
#include "platform/locale.h"
#include "store/time_entry.h"

#include <string>
#include <string_view>
#include <vector>

namespace hourwright::cli {

/// Prints time entries, as JSON objects or as rows for people.
class EntryOutput {
public:
    explicit EntryOutput(const billing::TimeRules& rules) : rules_(rules), json_(rules) {}

    void writeJson(JsonWriter& json, const store::TimeEntry& entry) { json_.write(json, entry); }

    /// A cell of an entry; see `entryCells` for the numbers of cells.
    [[nodiscard]] std::string cell(const store::TimeEntry& entry, std::size_t number,
                                   const platform::Locale& locale) const;

    /// The note's text, with LF between lines.
    [[nodiscard]] std::u16string noteText(const store::TimeEntry& entry) { return json_.noteText(entry); }

private:
    billing::TimeRules rules_;
    exchange::EntryJson json_;
};

/// What can be printed of an entry: its name in options, its title, and whether it stands to the right.
struct EntryCell {
    std::string_view name;
    std::string title;
    bool alignRight = false;
};

/// The cells by number: record id and status, then the list's columns by column index.
[[nodiscard]] std::vector<EntryCell> entryCells();

/// Number of the cell of the first column.
inline constexpr std::size_t firstColumnCell = 2;

} // namespace hourwright::cli
