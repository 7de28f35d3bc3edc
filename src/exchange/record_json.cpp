#include "exchange/record_json.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "billing/expense_amount.h"
#include "exchange/iso_dates.h"

namespace hourwright::exchange {

using platform::SystemTime;
using store::ExpenseEntry;
using store::TimeEntry;

void writeTime(JsonWriter& json, std::string_view name, const std::optional<SystemTime>& time,
               std::string (*format)(const SystemTime&)) {
    json.key(name);
    if (time)
        json.value(std::string_view(format(*time)));
    else
        json.null();
}

void EntryJson::write(JsonWriter& json, const TimeEntry& entry) {
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

void EntryJson::writeTimes(JsonWriter& json, const TimeEntry& entry) const {
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

void EntryJson::writeBilling(JsonWriter& json, const TimeEntry& entry) const {
    json.member("duration_hundredths", entry.duration).member("break_hundredths", entry.breakTime);
    json.member("hours", billing::hoursOf(entry)).member("status", static_cast<std::uint16_t>(entry.status));
    json.member("currency", entry.currency).member("rate_hundredths", entry.rate);
    json.member("rate_type", static_cast<std::uint16_t>(entry.rateType));
    json.member("amount", billing::amountOf(entry, rules_));
}

void writeJson(JsonWriter& json, const ExpenseEntry& expense) {
    json.beginObject().member("id", static_cast<std::uint32_t>(expense.id));
    json.member("type", static_cast<std::uint16_t>(expense.type));
    writeTime(json, "date", platform::toSystemTime(expense.date), dateText);
    json.member("description", expense.description).member("client", expense.client);
    json.member("project", expense.project).member("category", expense.category);
    json.member("start_odometer", expense.startOdometer).member("distance", expense.distance);
    json.member("end_odometer", store::endOdometer(expense));
    json.member("amount_hundredths", expense.amount).member("amount", billing::amountOf(expense));
    json.member("currency", expense.currency).member("status", static_cast<std::uint16_t>(expense.status));
    json.member("receipt", expense.receipt);
    writeTime(json, "paid_date", unlessZero(expense.paidDate), dateText);
    json.member("bill_to", expense.billTo).member("custom1", expense.custom1).member("custom2", expense.custom2);
    json.member("note", expense.note);
    writeTime(json, "modified", platform::toSystemTime(expense.modified), dateTimeText);
    json.member("flags", expense.flags).endObject();
}

std::u16string EntryJson::noteText(const TimeEntry& entry) {
    if (entry.note.empty())
        return {};
    std::u16string text(notes_.convert(entry.note));
    std::erase(text, u'\r');
    return text;
}

} // namespace hourwright::exchange
