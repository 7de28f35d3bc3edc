#include "app/entry_columns.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "platform/calendar.h"

#include <array>
#include <optional>

namespace hourwright::app {

namespace {

using resources::StringId;
using store::TimeEntry;

template<std::u16string TimeEntry::*text>
std::u16string entryText(const TimeEntry& entry, const CellContext& context) {
    return textCell<TimeEntry, text>(entry, context);
}

// The cell of another rule, for billable entries only.
template<std::u16string (*cell)(const TimeEntry&, const CellContext&)>
std::u16string ifBillable(const TimeEntry& entry, const CellContext& context) {
    const bool billable = entry.status >= store::EntryStatus::billable && entry.status <= store::EntryStatus::paid;
    return billable ? cell(entry, context) : std::u16string{};
}

std::u16string entryDate(const TimeEntry& entry, const CellContext& context) {
    return dateCell(entry.date, context);
}

std::u16string duration(const TimeEntry& entry, const CellContext& /*context*/) {
    return billing::formatHours(entry);
}

std::optional<platform::SystemTime> startOf(const TimeEntry& entry) {
    return store::hasStart(entry) ? platform::toSystemTime(entry.date) : std::nullopt;
}

std::u16string startTime(const TimeEntry& entry, const CellContext& context) {
    const auto start = startOf(entry);
    return start ? context.locale.timeWithoutSeconds(*start) : std::u16string{};
}

// When the work would have ended without its break; exports and the editor add the break.
std::u16string endTime(const TimeEntry& entry, const CellContext& context) {
    auto end = startOf(entry);
    if (!end || !platform::addMinutes(*end, billing::minutesOfDuration(entry)))
        return {};
    return context.locale.timeWithoutSeconds(*end);
}

std::u16string rate(const TimeEntry& entry, const CellContext& context) {
    return moneyCell(billing::rateOf(entry), context);
}

std::u16string rateType(const TimeEntry& entry, const CellContext& /*context*/) {
    if (entry.rateType > store::RateType::discount)
        return {};
    const auto id = resources::number(StringId::rateTypeNormal) + static_cast<std::uint16_t>(entry.rateType);
    return std::u16string(resources::string(static_cast<StringId>(id)));
}

std::u16string amount(const TimeEntry& entry, const CellContext& context) {
    return moneyCell(billing::amountOf(entry, context.rules), context);
}

constexpr std::array<EntryColumn, entryColumnCount> columns{{
    {"date", StringId::columnEntryDate, 80, false, entryDate},
    {"client", StringId::columnClient, 100, false, entryText<&TimeEntry::client>},
    {"project", StringId::columnProject, 100, false, entryText<&TimeEntry::project>},
    {"phase", StringId::columnPhase, 50, false, entryText<&TimeEntry::phase>},
    {"task", StringId::columnTask, 100, false, entryText<&TimeEntry::task>},
    {"duration", StringId::columnDuration, 50, true, duration},
    {"start", StringId::columnStartTime, 65, false, startTime},
    {"bill-to", StringId::columnBillTo, 80, false, entryText<&TimeEntry::billTo>},
    {"custom1", StringId::columnCustom1, 70, false, entryText<&TimeEntry::custom1>},
    {"custom2", StringId::columnCustom2, 70, false, entryText<&TimeEntry::custom2>},
    {"custom3", StringId::columnCustom3, 70, false, entryText<&TimeEntry::custom3>},
    {"end", StringId::columnEndTime, 65, false, endTime},
    {"currency", StringId::columnCurrency, 65, false, ifBillable<entryText<&TimeEntry::currency>>},
    {"rate", StringId::columnRate, 60, true, ifBillable<rate>},
    {"rate-type", StringId::columnRateType, 70, false, ifBillable<rateType>},
    {"amount", StringId::columnAmount, 60, true, ifBillable<amount>},
}};

} // namespace

std::span<const EntryColumn, entryColumnCount> entryColumns() {
    return columns;
}

std::u16string cellText(const TimeEntry& entry, std::size_t column, const platform::Locale& locale,
                        const billing::TimeRules& rules) {
    return column < columns.size() ? columns[column].cell(entry, {locale, rules}) : std::u16string{};
}

RowImage getRowImage(const TimeEntry& entry) {
    return {.icon = statusIcon(entry.status), .noteOverlay = !entry.note.empty()};
}

} // namespace hourwright::app
