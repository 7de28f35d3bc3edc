#include "billing/record_merge.h"

#include <utility>

namespace hourwright::billing {

namespace {

using store::ExpenseEntry;
using store::TimeEntry;

template<typename Record>
class Merge {
public:
    Merge(const Record& opened, const Record& edited, const Record& stored)
        : opened_(opened), edited_(edited), stored_(stored), result_{.record = stored} {}

    /// Fields that belong together.
    template<typename... Field>
    Merge& together(Field Record::*... fields) {
        const bool editedIt = ((edited_.*fields != opened_.*fields) || ...);
        const bool storedIt = ((stored_.*fields != opened_.*fields) || ...);
        const bool differ = ((edited_.*fields != stored_.*fields) || ...);
        if (editedIt)
            ((result_.record.*fields = edited_.*fields), ...);
        result_.collides = result_.collides || (editedIt && storedIt && differ);
        return *this;
    }

    /// Fields each of which stands for itself.
    template<typename... Field>
    Merge& each(Field Record::*... fields) {
        (together(fields), ...);
        return *this;
    }

    [[nodiscard]] MergedRecord<Record> result() { return std::move(result_); }

private:
    const Record& opened_;
    const Record& edited_;
    const Record& stored_;
    MergedRecord<Record> result_;
};

} // namespace

MergedRecord<TimeEntry> mergeRecords(const TimeEntry& opened, const TimeEntry& edited, const TimeEntry& stored) {
    using E = TimeEntry;
    return Merge<E>(opened, edited, stored)
        .together(&E::date, &E::duration, &E::breakTime)
        .together(&E::status, &E::paidDate)
        .together(&E::currency, &E::rate, &E::rateType)
        .each(&E::client, &E::project, &E::phase, &E::task, &E::billTo, &E::custom1, &E::custom2, &E::custom3, &E::note)
        .result();
}

MergedRecord<ExpenseEntry> mergeRecords(const ExpenseEntry& opened, const ExpenseEntry& edited,
                                        const ExpenseEntry& stored) {
    using E = ExpenseEntry;
    return Merge<E>(opened, edited, stored)
        .together(&E::startOdometer, &E::distance)
        .together(&E::status, &E::paidDate)
        .together(&E::currency, &E::amount)
        .each(&E::date, &E::description, &E::client, &E::project, &E::category, &E::receipt, &E::billTo, &E::custom1,
              &E::custom2, &E::note)
        .result();
}

} // namespace hourwright::billing
