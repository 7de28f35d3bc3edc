#pragma once

#include "billing/time_rules.h"
#include "exchange/json_writer.h"
#include "exchange/note_text_converter.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <optional>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// Time entries as JSON objects: the form that `hwctl` prints and that the JSON export writes. Numbers do not depend on
/// the locale; hours and money also stand as the stored integers. Amounts are not rounded.
class EntryJson {
public:
    explicit EntryJson(const billing::TimeRules& rules) : rules_(rules) {}

    void write(JsonWriter& json, const store::TimeEntry& entry);

    /// The note's text, with LF between lines.
    [[nodiscard]] std::u16string noteText(const store::TimeEntry& entry);

private:
    void writeTimes(JsonWriter& json, const store::TimeEntry& entry) const;
    void writeBilling(JsonWriter& json, const store::TimeEntry& entry) const;

    billing::TimeRules rules_;
    NoteTextConverter notes_;
};

/// An expense in the same form.
void writeJson(JsonWriter& json, const store::ExpenseEntry& expense);

/// A member with a date or time, null for none.
void writeTime(JsonWriter& json, std::string_view name, const std::optional<platform::SystemTime>& time,
               std::string (*format)(const platform::SystemTime&));

} // namespace hourwright::exchange
