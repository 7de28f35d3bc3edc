#include "store/expense_entry.h"

#include "store/fields.h"
#include "store/property_list.h"

namespace hourwright::store {

using platform::PropertyId;
using platform::PropertyValue;
using platform::ValueType;

namespace {

constexpr std::uint32_t packed(std::uint16_t number, ValueType type) {
    return PropertyId(number, type).value;
}

void applyNumber(ExpenseEntry& expense, const PropertyValue& value) {
    const auto small = static_cast<std::uint16_t>(value.number);
    const auto wide = static_cast<std::uint32_t>(value.number);
    switch (value.id.value) {
    case packed(field::kind, ValueType::ui2): expense.type = static_cast<ExpenseType>(small); break;
    case packed(field::date, ValueType::fileTime): expense.date = value.fileTime(); break;
    case packed(field::startOdometer, ValueType::ui4): expense.startOdometer = wide; break;
    case packed(field::distance, ValueType::ui4): expense.distance = wide; break;
    case packed(field::status, ValueType::ui2): expense.status = static_cast<EntryStatus>(small); break;
    case packed(field::rate, ValueType::ui4): expense.amount = wide; break;
    case packed(field::receipt, ValueType::boolean): expense.receipt = value.number != 0; break;
    case packed(field::paidDate, ValueType::fileTime): expense.paidDate = value.fileTime(); break;
    case packed(field::stamp, ValueType::fileTime): expense.modified = value.fileTime(); break;
    case packed(field::flags, ValueType::ui2): expense.flags = small; break;
    default: break;
    }
}

void applyText(ExpenseEntry& expense, const PropertyValue& value) {
    switch (value.id.number()) {
    case field::description: expense.description = value.text; break;
    case field::client: expense.client = value.text; break;
    case field::project: expense.project = value.text; break;
    case field::category: expense.category = value.text; break;
    case field::currency: expense.currency = value.text; break;
    case field::billTo: expense.billTo = value.text; break;
    case field::custom1: expense.custom1 = value.text; break;
    case field::custom2: expense.custom2 = value.text; break;
    case field::expenseNote: expense.note = value.text; break;
    default: break;
    }
}

// Each kind of expense has properties that the other never carries; an update that changes the kind removes them.
void addKindOfExpense(PropertyList& list, const ExpenseEntry& expense) {
    if (expense.type == ExpenseType::mileage) {
        list.ui4(field::startOdometer, expense.startOdometer);
        list.ui4(field::distance, expense.distance);
        list.deleteProperty({field::category, ValueType::text});
    } else {
        list.textUnlessEmpty(field::category, expense.category);
        list.deleteProperty({field::startOdometer, ValueType::ui4});
        list.deleteProperty({field::distance, ValueType::ui4});
    }
}

PropertyList propertyList(const ExpenseEntry& expense, std::uint16_t flags, PropertyList::Mode mode) {
    PropertyList list(mode);
    list.ui2(field::kind, static_cast<std::uint16_t>(expense.type));
    list.fileTime(field::date, expense.date);
    list.textUnlessEmpty(field::description, expense.description);
    list.text(field::client, expense.client);
    list.textUnlessEmpty(field::project, expense.project);
    addKindOfExpense(list, expense);
    list.ui2UnlessZero(field::status, static_cast<std::uint16_t>(expense.status));
    list.textUnlessEmpty(field::currency, expense.currency);
    list.ui4UnlessZero(field::rate, expense.amount);
    list.booleanUnlessFalse(field::receipt, expense.receipt);
    list.fileTimeUnlessZero(field::paidDate, expense.paidDate);
    list.textUnlessEmpty(field::billTo, expense.billTo);
    list.textUnlessEmpty(field::custom1, expense.custom1);
    list.textUnlessEmpty(field::custom2, expense.custom2);
    list.textUnlessEmpty(field::expenseNote, expense.note);
    list.fileTime(field::stamp, expense.modified);
    list.ui2(field::flags, flags);
    return list;
}

} // namespace

void readExpenseEntry(RecordId id, const platform::PropertyBuffer& properties, ExpenseEntry& out) {
    out = ExpenseEntry{.id = id};
    for (const PropertyValue& value : properties.values()) {
        if (value.id.type() == ValueType::text)
            applyText(out, value);
        else
            applyNumber(out, value);
    }
}

ReadResult readExpenseEntry(RecordStore& store, ExpenseEntry& out) {
    platform::PropertyBuffer properties;
    const ReadResult result = store.read(properties);
    if (result == ReadResult::ok)
        readExpenseEntry(store.current(), properties, out);
    return result;
}

bool insertExpenseEntry(platform::Transaction& transaction, RecordStore& store, ExpenseEntry& expense,
                        std::uint16_t requestedFlags) {
    const RecordId id =
        store.write(transaction, RecordId::none, propertyList(expense, requestedFlags, PropertyList::Mode::insert));
    if (id == RecordId::none)
        return false;
    expense.id = id;
    expense.flags = requestedFlags;
    return true;
}

bool updateExpenseEntry(platform::Transaction& transaction, RecordStore& store, ExpenseEntry& expense,
                        std::uint16_t requestedFlags) {
    if (expense.id == RecordId::none)
        return store.refuse(platform::PlatformError::invalidParameter);
    const std::uint16_t flags = flagsAfterUpdate(expense.flags, requestedFlags);
    const auto list = propertyList(expense, flags, PropertyList::Mode::update);
    if (store.write(transaction, expense.id, list) == RecordId::none)
        return false;
    expense.flags = flags;
    return true;
}

} // namespace hourwright::store
