#include "billing/summary.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "store/date_walk.h"
#include "store/fields.h"

#include <array>

namespace hourwright::billing {

namespace {

namespace field = store::field;
using platform::FileTime;
using platform::PropertyId;
using platform::ValueType;
using resources::StringId;
using store::EntryStatus;
using store::ReadResult;
using store::TimeEntry;

constexpr PropertyId dateProperty{field::date, ValueType::fileTime};

// Properties of earlier versions.
constexpr std::array oldProperties = {PropertyId{field::oldBillable, ValueType::boolean},
                                      PropertyId{field::oldBilled, ValueType::boolean},
                                      PropertyId{field::oldStart, ValueType::fileTime}};

// What a summary needs of a record besides the names of its scope.
constexpr std::array summedProperties = {dateProperty,
                                         PropertyId{field::duration, ValueType::ui2},
                                         PropertyId{field::status, ValueType::ui2},
                                         PropertyId{field::rate, ValueType::ui4},
                                         PropertyId{field::rateType, ValueType::ui2},
                                         oldProperties[0],
                                         oldProperties[1],
                                         oldProperties[2]};

std::vector<store::TextCondition> conditionsOf(const SummaryScope& scope) {
    std::vector<store::TextCondition> conditions{{field::client, scope.client}};
    if (!scope.project.empty())
        conditions.push_back({field::project, scope.project});
    if (!scope.task.empty())
        conditions.push_back({field::task, scope.task});
    return conditions;
}

// Reads the walk's record. What earlier versions stored counts in stored order, which only a full read keeps.
ReadResult readRecord(store::RecordStore& entries, const store::DateWalk& walk, TimeEntry& out) {
    for (const PropertyId old : oldProperties)
        if (walk.properties().find(old) != nullptr)
            return readTimeEntry(entries, out);
    readTimeEntry(walk.id(), walk.properties(), out);
    return ReadResult::ok;
}

void widenDates(Summary& summary, FileTime date) {
    if (!summary.firstDate)
        summary.firstDate = date;
    summary.lastDate = date;
}

std::u16string dateText(const std::optional<FileTime>& date, const platform::Locale& locale) {
    const auto calendar = date ? platform::toSystemTime(*date) : std::nullopt;
    return calendar ? locale.shortDate(*calendar) : std::u16string{};
}

std::u16string label(StringId id) {
    return std::u16string(resources::string(id));
}

void addScopeRows(std::vector<SummaryRow>& rows, const SummaryScope& scope) {
    rows.push_back({titleLabel(StringId::columnClient), scope.client});
    if (!scope.project.empty())
        rows.push_back({titleLabel(StringId::columnProject), scope.project});
    if (!scope.task.empty())
        rows.push_back({titleLabel(StringId::columnTask), scope.task});
}

} // namespace

void addToSummary(Summary& summary, const TimeEntry& entry, const TimeRules& rules) {
    const double hours = hoursOf(entry);
    if (entry.status == EntryStatus::nonBillable) {
        summary.nonBillableHours += hours;
        return;
    }
    const double amount = amountOf(entry, rules);
    summary.billableHours += hours;
    if (entry.status == EntryStatus::paid) {
        summary.paidHours += hours;
        summary.paidAmount += amount;
        return;
    }
    summary.unpaidAmount += amount;
    if (entry.status == EntryStatus::billed) {
        summary.billedHours += hours;
        summary.billedAmount += amount;
    }
}

std::optional<Summary> summarize(store::RecordStore& entries, const SummaryScope& scope, const TimeRules& rules) {
    store::DateWalk walk(entries, {}, summedProperties, conditionsOf(scope));
    Summary summary;
    TimeEntry entry;
    ReadResult result = ReadResult::ok;
    while ((result = walk.next()) == ReadResult::ok) {
        if (readRecord(entries, walk, entry) != ReadResult::ok)
            return std::nullopt;
        if (walk.properties().find(dateProperty) != nullptr)
            widenDates(summary, entry.date);
        addToSummary(summary, entry, rules);
    }
    return result == ReadResult::noMore ? std::optional(summary) : std::nullopt;
}

std::vector<SummaryRow> summaryRows(const Summary& summary, const SummaryScope& scope, const platform::Locale& locale) {
    std::vector<SummaryRow> rows;
    addScopeRows(rows, scope);
    const SummaryRow sums[] = {
        {},
        {label(StringId::summaryFirstDate), dateText(summary.firstDate, locale)},
        {label(StringId::summaryLastDate), dateText(summary.lastDate, locale)},
        {},
        {label(StringId::summaryHours), hoursText(summary.billableHours + summary.nonBillableHours)},
        {label(StringId::statusBillable), hoursText(summary.billableHours), 1},
        {label(StringId::statusBilled), hoursText(summary.billedHours), 1},
        {label(StringId::statusPaid), hoursText(summary.paidHours), 1},
        {label(StringId::statusNonBillable), hoursText(summary.nonBillableHours), 1},
        {},
        {label(StringId::summaryAmount), amountText(summary.unpaidAmount + summary.paidAmount)},
        {label(StringId::summaryUnpaid), amountText(summary.unpaidAmount), 1},
        {label(StringId::statusBilled), amountText(summary.billedAmount), 1},
        {label(StringId::statusPaid), amountText(summary.paidAmount), 1},
    };
    rows.insert(rows.end(), std::begin(sums), std::end(sums));
    return rows;
}

} // namespace hourwright::billing
