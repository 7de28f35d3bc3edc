#pragma once

#include "billing/time_rules.h"
#include "cli/json_writer.h"
#include "exchange/note_text_converter.h"
#include "platform/locale.h"
#include "store/time_entry.h"

#include <string>
#include <vector>

namespace hourwright::cli {

/// Prints time entries, as JSON objects or as rows for people.
class EntryOutput {
public:
    explicit EntryOutput(const billing::TimeRules& rules) : rules_(rules) {}

    void writeJson(JsonWriter& json, const store::TimeEntry& entry);

    /// The cells of an entry: record id and status, then the list's columns.
    [[nodiscard]] std::vector<std::string> cells(const store::TimeEntry& entry, const platform::Locale& locale) const;

    /// The note's text, with LF between lines.
    [[nodiscard]] std::u16string noteText(const store::TimeEntry& entry);

private:
    void writeTimes(JsonWriter& json, const store::TimeEntry& entry) const;
    void writeBilling(JsonWriter& json, const store::TimeEntry& entry) const;

    billing::TimeRules rules_;
    exchange::NoteTextConverter notes_;
};

/// A title for each of the cells, and those that stand to the right.
struct CellTitle {
    std::string title;
    bool alignRight = false;
};
[[nodiscard]] std::vector<CellTitle> entryCellTitles();

} // namespace hourwright::cli
