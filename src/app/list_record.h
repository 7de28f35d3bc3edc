#pragma once

#include "app/arrange.h"
#include "app/entry_columns.h"
#include "app/expense_columns.h"
#include "app/list_rows.h"
#include "store/fields.h"

#include <array>
#include <utility>

/// What the lists of the two kinds of records differ in.
namespace hourwright::app {

template<typename Record>
struct ListRecord;

/// A text of a record: where it is stored and which text of a filter may ask for it.
template<typename Record, typename Filter>
struct ListText {
    std::uint16_t field;
    std::u16string Record::*text;
    std::u16string Filter::*wanted;
};

inline constexpr platform::PropertyId dateOfRecord{store::field::date, platform::ValueType::fileTime};

constexpr platform::PropertyId ui2(std::uint16_t field) {
    return {field, platform::ValueType::ui2};
}
constexpr platform::PropertyId ui4(std::uint16_t field) {
    return {field, platform::ValueType::ui4};
}
constexpr platform::PropertyId flag(std::uint16_t field) {
    return {field, platform::ValueType::boolean};
}

template<>
struct ListRecord<store::TimeEntry> {
    using Record = store::TimeEntry;
    using Matcher = EntryMatcher;

    static constexpr auto database = store::DatabaseKind::data1;
    static constexpr auto second = &Record::task;
    /// What filters without texts, the totals and dates of earlier versions need. The date stands before the start
    /// that is put into it.
    static constexpr std::array always{dateOfRecord,
                                       ui2(store::field::duration),
                                       ui2(store::field::breakTime),
                                       ui2(store::field::status),
                                       ui2(store::field::rateType),
                                       ui4(store::field::rate),
                                       flag(store::field::oldBillable),
                                       flag(store::field::oldBilled),
                                       platform::PropertyId{store::field::oldStart, platform::ValueType::fileTime}};
    /// What cells need besides, other than texts.
    static constexpr std::array<platform::PropertyId, 0> shown{};
    static constexpr auto currency = store::field::currency;
    static constexpr std::array<ListText<Record, EntryFilter>, 8> texts{{
        {store::field::client, &Record::client, &EntryFilter::client},
        {store::field::project, &Record::project, &EntryFilter::project},
        {store::field::phase, &Record::phase, &EntryFilter::phase},
        {store::field::task, &Record::task, &EntryFilter::task},
        {store::field::billTo, &Record::billTo, &EntryFilter::billTo},
        {store::field::custom1, &Record::custom1, &EntryFilter::custom1},
        {store::field::custom2, &Record::custom2, &EntryFilter::custom2},
        {store::field::custom3, &Record::custom3, &EntryFilter::custom3},
    }};

    static auto columns() { return entryColumns(); }
    static constexpr const auto& arrangements() { return entryArrangements; }
    static const EntryFilter& filter(const ListQuery& query) { return query.entryFilter; }
    static void add(ViewTotals& totals, const Record& entry, const billing::TimeRules& rules) {
        totals.add(entry, rules);
    }
    static store::ReadResult read(store::RecordStore& store, Record& out) { return store::readTimeEntry(store, out); }
    static SimpleRow simpleRow(const Record& entry, const CellContext& context, const DisplaySettings& display);
};

template<>
struct ListRecord<store::ExpenseEntry> {
    using Record = store::ExpenseEntry;
    using Matcher = ExpenseMatcher;

    static constexpr auto database = store::DatabaseKind::expenses;
    static constexpr auto second = &Record::description;
    static constexpr std::array always{dateOfRecord,
                                       ui2(store::field::kind),
                                       ui2(store::field::status),
                                       ui4(store::field::rate),
                                       ui4(store::field::distance),
                                       flag(store::field::receipt)};
    static constexpr std::array shown{ui4(store::field::startOdometer)};
    static constexpr auto currency = store::field::currency;
    static constexpr std::array<ListText<Record, ExpenseFilter>, 7> texts{{
        {store::field::client, &Record::client, &ExpenseFilter::client},
        {store::field::project, &Record::project, &ExpenseFilter::project},
        {store::field::category, &Record::category, &ExpenseFilter::category},
        {store::field::billTo, &Record::billTo, &ExpenseFilter::billTo},
        {store::field::custom1, &Record::custom1, &ExpenseFilter::custom1},
        {store::field::custom2, &Record::custom2, &ExpenseFilter::custom2},
        {store::field::description, &Record::description, nullptr},
    }};

    static auto columns() { return expenseColumns(); }
    static constexpr const auto& arrangements() { return expenseArrangements; }
    static const ExpenseFilter& filter(const ListQuery& query) { return query.expenseFilter; }
    static void add(ViewTotals& totals, const Record& expense, const billing::TimeRules& /*rules*/) {
        totals.add(expense);
    }
    static store::ReadResult read(store::RecordStore& store, Record& out) {
        return store::readExpenseEntry(store, out);
    }
    static SimpleRow simpleRow(const Record& expense, const CellContext& context, const DisplaySettings& display);
};

} // namespace hourwright::app
