#include "app/entry_columns.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "platform/number_text.h"

#include <array>

namespace hourwright::app {

namespace {

using resources::StringId;
using store::TimeEntry;

struct CellContext {
    const platform::Locale& locale;
    const billing::TimeRules& rules;
};

using CellRule = std::u16string (*)(const TimeEntry&, const CellContext&);

template<std::u16string TimeEntry::*member>
std::u16string textCell(const TimeEntry& entry, const CellContext&) {
    return entry.*member;
}

// The cell of another rule, for billable entries only.
template<CellRule rule>
std::u16string billableCell(const TimeEntry& entry, const CellContext& context) {
    return entry.status == store::EntryStatus::nonBillable ? std::u16string{} : rule(entry, context);
}

std::u16string dateCell(const TimeEntry& entry, const CellContext& context) {
    const auto date = platform::toSystemTime(entry.date);
    return date ? context.locale.shortDate(*date) : std::u16string{};
}

std::u16string durationCell(const TimeEntry& entry, const CellContext&) {
    return billing::formatHours(entry);
}

std::u16string startCell(const TimeEntry& entry, const CellContext& context) {
    const auto start = platform::toSystemTime(entry.date);
    return start && store::hasStart(entry) ? context.locale.timeWithoutSeconds(*start) : std::u16string{};
}

std::u16string endCell(const TimeEntry& entry, const CellContext& context) {
    const auto start = platform::toSystemTime(entry.date);
    return start && store::hasStart(entry) ? context.locale.timeWithoutSeconds(billing::endTime(*start, entry))
                                           : std::u16string{};
}

std::u16string rateCell(const TimeEntry& entry, const CellContext& context) {
    std::u16string plain;
    platform::appendHundredths(plain, entry.rate);
    return context.locale.number(plain);
}

std::u16string rateTypeCell(const TimeEntry& entry, const CellContext&) {
    if (entry.rateType > store::RateType::discount)
        return {};
    const auto id = resources::number(StringId::rateTypeNormal) + static_cast<std::uint16_t>(entry.rateType);
    return std::u16string(resources::string(static_cast<StringId>(id)));
}

std::u16string amountCell(const TimeEntry& entry, const CellContext& context) {
    std::u16string plain;
    platform::appendFixedDecimals(plain, billing::amountOf(entry, context.rules), 2);
    return context.locale.number(plain);
}

constexpr std::array<EntryColumn, 16> columns{{
    {StringId::columnEntryDate, 80},
    {StringId::columnClient, 100},
    {StringId::columnProject, 100},
    {StringId::columnPhase, 50},
    {StringId::columnTask, 100},
    {StringId::columnDuration, 50, true},
    {StringId::columnStartTime, 65},
    {StringId::columnBillTo, 80},
    {StringId::columnCustom1, 70},
    {StringId::columnCustom2, 70},
    {StringId::columnCustom3, 70},
    {StringId::columnEndTime, 65},
    {StringId::columnCurrency, 65},
    {StringId::columnRate, 60, true},
    {StringId::columnRateType, 70},
    {StringId::columnAmount, 60, true},
}};

constexpr std::array<CellRule, columns.size()> cellRules{
    dateCell,
    textCell<&TimeEntry::client>,
    textCell<&TimeEntry::project>,
    textCell<&TimeEntry::phase>,
    textCell<&TimeEntry::task>,
    durationCell,
    startCell,
    textCell<&TimeEntry::billTo>,
    textCell<&TimeEntry::custom1>,
    textCell<&TimeEntry::custom2>,
    textCell<&TimeEntry::custom3>,
    endCell,
    billableCell<textCell<&TimeEntry::currency>>,
    billableCell<rateCell>,
    billableCell<rateTypeCell>,
    billableCell<amountCell>,
};

} // namespace

std::span<const EntryColumn> entryColumns() {
    return columns;
}

std::u16string cellText(const TimeEntry& entry, std::size_t column, const platform::Locale& locale,
                        const billing::TimeRules& rules) {
    return column < cellRules.size() ? cellRules[column](entry, {locale, rules}) : std::u16string{};
}

} // namespace hourwright::app
