#include "cli/entry_output.h"

#include "app/entry_columns.h"
#include "billing/amount.h"
#include "billing/duration.h"
#include "cli/date_text.h"
#include "cli/display_width.h"
#include "cli/record_values.h"
#include "platform/utf.h"
#include "resources/strings.h"

namespace hourwright::cli {

using platform::SystemTime;
using resources::StringId;
using store::TimeEntry;

void EntryOutput::writeJson(JsonWriter& json, const TimeEntry& entry) {
    json.beginObject().member("id", static_cast<std::uint32_t>(entry.id));
    writeTimes(json, entry);
    json.member("client", entry.client).member("project", entry.project);
    json.member("phase", entry.phase).member("task", entry.task);
    writeBilling(json, entry);
    json.member("bill_to", entry.billTo).member("custom1", entry.custom1);
    json.member("custom2", entry.custom2).member("custom3", entry.custom3);
    json.member("note", noteText(entry));
    writeTime(json, "paid_date", unlessZero(entry.paidDate), dateText);
    writeTime(json, "modified", platform::toSystemTime(entry.modified), dateTimeText);
    json.member("flags", entry.flags).endObject();
}

void EntryOutput::writeTimes(JsonWriter& json, const TimeEntry& entry) const {
    const auto date = platform::toSystemTime(entry.date);
    std::optional<SystemTime> start;
    std::optional<SystemTime> end;
    if (date && store::hasStart(entry)) {
        start = date;
        end = billing::endTime(*date, entry);
    }
    writeTime(json, "date", date, dateText);
    writeTime(json, "start", start, timeText);
    writeTime(json, "end", end, timeText);
}

void EntryOutput::writeBilling(JsonWriter& json, const TimeEntry& entry) const {
    json.member("duration_hundredths", entry.duration).member("break_hundredths", entry.breakTime);
    json.member("hours", billing::hoursOf(entry)).member("status", static_cast<std::uint16_t>(entry.status));
    json.member("currency", entry.currency).member("rate_hundredths", entry.rate);
    json.member("rate_type", static_cast<std::uint16_t>(entry.rateType));
    json.member("amount", billing::amountOf(entry, rules_));
}

std::string EntryOutput::cell(const TimeEntry& entry, std::size_t number, const platform::Locale& locale) const {
    if (number == 0)
        return std::to_string(static_cast<std::uint32_t>(entry.id));
    if (number < firstColumnCell)
        return statusText(entry.status);
    return cellText(app::cellText(entry, number - firstColumnCell, locale, rules_));
}

std::u16string EntryOutput::noteText(const TimeEntry& entry) {
    if (entry.note.empty())
        return {};
    std::u16string text(notes_.convert(entry.note));
    std::erase(text, u'\r');
    return text;
}

std::vector<EntryCell> entryCells() {
    std::vector<EntryCell> cells{{"id", "ID", true}, {"status", cellText(resources::string(StringId::columnStatus))}};
    for (const app::EntryColumn& column : app::entryColumns())
        cells.push_back({column.name, cellText(resources::string(column.title)), column.alignRight});
    return cells;
}

} // namespace hourwright::cli
