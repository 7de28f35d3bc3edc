#pragma once

#include "platform/object_store.h"
#include "store/entry_types.h"
#include "store/record_store.h"

#include <cstdint>
#include <string>

namespace hourwright::store {

/// One general or mileage expense. The category belongs to general expenses only, the odometer to mileage only.
struct ExpenseEntry {
    RecordId id = RecordId::none;
    ExpenseType type = ExpenseType::general;
    platform::FileTime date;
    std::u16string description;
    std::u16string client;
    std::u16string project;
    std::u16string category;
    std::uint32_t startOdometer = 0; ///< distance units
    std::uint32_t distance = 0;      ///< distance units
    EntryStatus status = EntryStatus::nonBillable;
    std::u16string currency;
    std::uint32_t amount = 0; ///< hundredths: the amount, or the rate per distance unit of a mileage expense
    bool receipt = false;
    platform::FileTime paidDate; ///< zero: none
    std::u16string billTo;
    std::u16string custom1;
    std::u16string custom2;
    std::u16string note;
    platform::FileTime modified;
    std::uint16_t flags = 0;

    friend bool operator==(const ExpenseEntry&, const ExpenseEntry&) = default;
};

/// Start odometer plus distance; wider than either so that it cannot overflow.
[[nodiscard]] constexpr std::uint64_t endOdometer(const ExpenseEntry& expense) {
    return std::uint64_t{expense.startOdometer} + expense.distance;
}

/// Reads an expense from the current record of the expense store.
[[nodiscard]] ReadResult readExpenseEntry(RecordStore& store, ExpenseEntry& out);
void readExpenseEntry(RecordId id, const platform::PropertyBuffer& properties, ExpenseEntry& out);

/// Writes a new record and sets the expense's id and flags; false when it was not written.
[[nodiscard]] bool insertExpenseEntry(platform::Transaction& transaction, RecordStore& store, ExpenseEntry& expense,
                                      std::uint16_t requestedFlags = flagsNew);
/// Rewrites the record of the expense's id; false, and the expense unchanged, when it was not written.
[[nodiscard]] bool updateExpenseEntry(platform::Transaction& transaction, RecordStore& store, ExpenseEntry& expense,
                                      std::uint16_t requestedFlags = flagsChanged);

} // namespace hourwright::store
