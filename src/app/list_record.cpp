#include "app/list_record.h"

#include "billing/amount.h"
#include "billing/duration.h"

namespace hourwright::app {

namespace {

std::u16string joined(std::initializer_list<std::u16string_view> parts, std::u16string_view between) {
    std::u16string text;
    for (const std::u16string_view part : parts) {
        if (part.empty())
            continue;
        if (!text.empty())
            text += between;
        text += part;
    }
    return text;
}

template<typename Record>
std::u16string cellNamed(std::string_view name, const Record& record, const CellContext& context) {
    for (const auto& column : ListRecord<Record>::columns())
        if (column.name == name)
            return column.cell(record, context);
    return {};
}

std::u16string timeShown(const store::TimeEntry& entry, const CellContext& context, EntryTimeShown shown) {
    const std::u16string start = cellNamed("start", entry, context);
    switch (shown) {
    case EntryTimeShown::start: return start;
    case EntryTimeShown::startAndEnd: return joined({start, cellNamed("end", entry, context)}, u"–");
    case EntryTimeShown::duration:
    case EntryTimeShown::none: break;
    }
    return {};
}

} // namespace

SimpleRow ListRecord<store::TimeEntry>::simpleRow(const Record& entry, const CellContext& context,
                                                  const DisplaySettings& display) {
    const auto work = joined({entry.project, entry.task}, u" / ");
    const std::u16string_view client = display.showClientName ? entry.client : std::u16string_view();
    SimpleRow row;
    row.title = joined({client, work}, u" · ");
    if (display.entryTime != EntryTimeShown::none)
        row.titleRight = billing::formatHours(entry) + u'h';
    row.detail =
        joined({dateCell(entry.date, context), timeShown(entry, context, display.entryTime), entry.phase}, u" · ");
    row.detailRight = joined({cellNamed("amount", entry, context), cellNamed("currency", entry, context)}, u" ");
    return row;
}

SimpleRow ListRecord<store::ExpenseEntry>::simpleRow(const Record& expense, const CellContext& context,
                                                     const DisplaySettings& display) {
    const std::u16string_view client = display.showClientName ? expense.client : std::u16string_view();
    SimpleRow row;
    row.title = joined({client, expense.project, expense.description}, u" · ");
    row.titleRight = joined({cellNamed("amount", expense, context), expense.currency}, u" ");
    const std::u16string kind = expense.category.empty() ? cellNamed("type", expense, context) : expense.category;
    row.detail = joined({dateCell(expense.date, context), kind}, u" · ");
    row.detailRight = cellNamed("receipt", expense, context);
    if (expense.receipt)
        row.detailRight = std::u16string(resources::string(resources::StringId::expenseReceipt));
    return row;
}

} // namespace hourwright::app
