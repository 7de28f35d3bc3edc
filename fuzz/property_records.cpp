// Reads records with any properties of any type and size, as a damaged or foreign store may have them. What was read
// must be writable unless a number does not fit its field, reading it again must give the same, and billing must
// compute with it without leaving its ranges.

#include "app/entry_columns.h"
#include "billing/amount.h"
#include "billing/duration.h"
#include "billing/entry_preview.h"
#include "billing/expense_amount.h"
#include "billing/expense_draft.h"
#include "billing/odometer.h"
#include "billing/rate_draft.h"
#include "billing/summary.h"
#include "fuzz/input.h"
#include "fuzz/memory_objects.h"
#include "fuzz/memory_registry.h"
#include "fuzz/require.h"
#include "platform/icu/icu_locale.h"
#include "store/client_structure.h"
#include "store/expense_entry.h"
#include "store/fields.h"
#include "store/stores.h"
#include "store/structure_records.h"

#include <cmath>

namespace hourwright::fuzz {

using namespace store;
using platform::PropertyId;
using platform::PropertyValue;
using platform::ValueType;

namespace {

class NoMutex final : public platform::NamedMutex {
public:
    [[nodiscard]] bool lock() override { return true; }
    void unlock() override {}
};

// The stores, made once; their records are forgotten before each try.
struct Machine {
    MemoryObjects objects;
    NoMutex mutex;
    MemoryRegistry registry;
    Stores stores{objects, mutex, registry};
    std::unique_ptr<platform::Transaction> transaction = objects.begin();

    Machine() {
        require(stores.createMissing(*transaction));
        for (const DatabaseKind kind : {DatabaseKind::data1, DatabaseKind::expenses, DatabaseKind::rates})
            require(stores[kind].open());
    }
};

constexpr std::uint16_t fields[] = {
    field::date,     field::client,      field::project,     field::phase,        field::task,          field::duration,
    field::currency, field::rate,        field::oldBillable, field::oldBilled,    field::note,          field::oldStart,
    field::billTo,   field::custom1,     field::custom2,     field::custom3,      field::rateType,      field::status,
    field::paidDate, field::stamp,       field::flags,       field::breakTime,    field::text,          field::kind,
    field::clientId, field::description, field::rateFlag,    field::nextClientId, field::startOdometer, field::distance,
    field::receipt,  field::expenseNote, field::category,
};
constexpr ValueType types[] = {ValueType::boolean, ValueType::ui2,      ValueType::ui4,
                               ValueType::text,    ValueType::fileTime, ValueType::blob};

// What is borrowed by the values of one record.
struct Property {
    PropertyId id;
    std::uint64_t number = 0;
    std::u16string text;
    std::vector<std::byte> blob;

    [[nodiscard]] PropertyValue value() const { return {.id = id, .number = number, .text = text, .blob = blob}; }
};

std::uint64_t numberOf(Input& input, ValueType type) {
    switch (type) {
    case ValueType::boolean: return input.number() & 1;
    case ValueType::ui2: return input.number<std::uint16_t>();
    case ValueType::ui4: return input.number<std::uint32_t>();
    default: return input.number<std::uint64_t>();
    }
}

std::vector<Property> propertiesOf(Input& input) {
    constexpr std::size_t most = 48;
    std::vector<Property> properties;
    while (!input.atEnd() && properties.size() < most) {
        const std::uint16_t number = fields[input.below(std::size(fields))];
        const ValueType type = types[input.below(std::size(types))];
        Property property{.id = {number, type}, .text = {}, .blob = {}};
        if (type == ValueType::text) {
            property.text = input.text();
        } else if (type == ValueType::blob) {
            const Bytes bytes = input.bytes();
            property.blob.assign(bytes.begin(), bytes.end());
        } else {
            property.number = numberOf(input, type);
        }
        properties.push_back(std::move(property));
    }
    return properties;
}

RecordId writeRaw(Machine& machine, RecordStore& store, const std::vector<Property>& properties) {
    std::vector<PropertyValue> values;
    for (const Property& property : properties)
        values.push_back(property.value());
    return store.write(*machine.transaction, RecordId::none, values);
}

void requireFinite(double value) {
    require(std::isfinite(value));
}

const platform::Locale& locale() {
    static const auto german = platform::makeIcuLocale("de_DE");
    return *german;
}

void tryBilling(const TimeEntry& entry, const billing::TimeRules& rules) {
    requireFinite(billing::amountOf(entry, rules));
    require(billing::hoursOf(entry) >= 0 && billing::hoursOf(entry) <= 655.35);
    require(billing::minutesOfDuration(entry) >= 0 && billing::minutesOfDuration(entry) <= 65536 * 60 / 100);
    billing::Summary summary;
    billing::addToSummary(summary, entry, rules);
    requireFinite(summary.unpaidAmount + summary.billedAmount + summary.paidAmount + summary.billableHours);
    require(!billing::summaryRows(summary, {}, locale()).empty());
    require(app::statusIcon(entry.status) >= 1 && app::statusIcon(entry.status) <= 4);
    // Another column with each granularity, which is as much work for the locale as all the rest together.
    static_cast<void>(app::cellText(entry, rules.granularityMinutes % (app::entryColumnCount + 1), locale(), rules));
}

void tryEditing(const TimeEntry& entry, const billing::TimeRules& rules) {
    const platform::SystemTime now{.year = 2026, .month = 11, .day = 16, .hour = 9};
    const billing::EntryDraft opened = billing::draftOf(entry, now);
    const billing::EntryDraft touched = billing::touchedOnly(opened, opened);
    TimeEntry edited = entry;
    if (!billing::applyDraft(touched, rules, edited))
        require(edited == entry);
    const billing::EntryPreview preview = billing::previewOf(opened, billing::RateChoice(entry), rules, entry);
    requireFinite(preview.total.value_or(0.0));
    if (preview.end)
        require(platform::toFileTime(*preview.end).has_value());
}

bool fits(const TimeEntry& entry) {
    return entry.rate >= 0;
}
bool fits(const ExpenseEntry&) {
    return true;
}

// Only kinds of rates that there are, are written.
void normalize(TimeEntry& entry) {
    if (entry.rateType > RateType::discount)
        entry.rateType = RateType::normal;
}
// A mileage expense has no category, any other no odometer.
void normalize(ExpenseEntry& expense) {
    if (expense.type == ExpenseType::mileage)
        expense.category.clear();
    else
        expense.startOdometer = expense.distance = 0;
}

ReadResult readOne(RecordStore& store, TimeEntry& out) {
    return readTimeEntry(store, out);
}
ReadResult readOne(RecordStore& store, ExpenseEntry& out) {
    return readExpenseEntry(store, out);
}
bool insertOne(Machine& machine, RecordStore& store, TimeEntry& entry) {
    return insertTimeEntry(*machine.transaction, store, entry);
}
bool insertOne(Machine& machine, RecordStore& store, ExpenseEntry& expense) {
    return insertExpenseEntry(*machine.transaction, store, expense);
}
bool updateOne(Machine& machine, RecordStore& store, TimeEntry& entry) {
    return updateTimeEntry(*machine.transaction, store, entry);
}
bool updateOne(Machine& machine, RecordStore& store, ExpenseEntry& expense) {
    return updateExpenseEntry(*machine.transaction, store, expense);
}

template<typename Record>
Record readBack(RecordStore& store, RecordId id) {
    require(store.seek(platform::Seek::toId(id)) == id);
    Record record;
    require(readOne(store, record) == ReadResult::ok);
    return record;
}

// Read, written over itself, read; and written as a new one, read.
template<typename Record>
Record tryWriting(Machine& machine, RecordStore& store, RecordId id) {
    const auto read = readBack<Record>(store, id);
    Record written = read;
    const bool updated = updateOne(machine, store, written);
    require(updated == fits(read));
    if (!updated) {
        require(readBack<Record>(store, id) == read);
        return read;
    }
    normalize(written);
    require(readBack<Record>(store, id) == written);
    Record copy = written;
    copy.id = RecordId::none;
    require(insertOne(machine, store, copy));
    require(readBack<Record>(store, copy.id) == copy);
    return read;
}

void tryEntry(Machine& machine, Input& input) {
    const std::uint8_t bits = input.number();
    const billing::TimeRules rules{
        .preciseMinutes = (bits & 1) != 0, .granularityOn = (bits & 2) != 0, .granularityMinutes = input.number()};
    RecordStore& store = machine.stores.entries();
    const RecordId id = writeRaw(machine, store, propertiesOf(input));
    const TimeEntry entry = tryWriting<TimeEntry>(machine, store, id);
    tryBilling(entry, rules);
    tryEditing(entry, rules);
}

void tryExpense(Machine& machine, Input& input) {
    RecordStore& store = machine.stores.expenses();
    const RecordId id = writeRaw(machine, store, propertiesOf(input));
    const ExpenseEntry expense = tryWriting<ExpenseEntry>(machine, store, id);
    requireFinite(billing::amountOf(expense));
    const billing::ExpenseDraft opened = billing::draftOf(expense);
    ExpenseEntry edited = expense;
    if (!billing::applyDraft(billing::touchedOnly(opened, opened), edited))
        require(edited == expense);
    const billing::Odometer odometer(expense.startOdometer, expense.distance);
    require(odometer.end() == endOdometer(expense));
}

void tryRate(Machine& machine, Input& input) {
    RecordStore& store = machine.stores.rates();
    const RecordId id = writeRaw(machine, store, propertiesOf(input));
    require(store.seek(platform::Seek::toId(id)) == id);
    platform::PropertyBuffer properties;
    require(store.read(properties) == ReadResult::ok);
    RateRecord rate;
    readStructureRecord(id, properties, rate);
    RateRecord written = rate;
    require(writeRate(*machine.transaction, machine.stores, written) == (rate.rate >= 0));
    if (rate.rate < 0)
        return;
    require(store.seek(platform::Seek::toId(id)) == id && store.read(properties) == ReadResult::ok);
    readStructureRecord(id, properties, rate);
    require(rate == written);
    const auto refusal = billing::draftOf(rate).check({}, rate.id);
    require(!refusal || rate.type > RateType::discount || rate.description.empty() ||
            rate.description.size() > billing::maxRateDescription);
}

void tryStructure(Machine& machine, Input& input) {
    RecordStore& store = machine.stores.rates(); // any store will do for reading
    const RecordId id = writeRaw(machine, store, propertiesOf(input));
    require(store.seek(platform::Seek::toId(id)) == id);
    platform::PropertyBuffer properties;
    require(store.read(properties) == ReadResult::ok);
    const auto readTwice = [&](auto record) {
        auto again = record;
        readStructureRecord(id, properties, record);
        again.clientId = ~record.clientId;
        readStructureRecord(id, properties, again);
        require(record == again && record.id == id);
    };
    readTwice(ClientRecord{});
    readTwice(ProjectRecord{});
    readTwice(TaskRecord{});
    readTwice(ContactRecord{});
}

} // namespace

void propertyRecords(Bytes bytes) {
    static Machine machine;
    machine.objects.clear();
    Input input(bytes);
    switch (input.below(8)) {
    case 0: return tryRate(machine, input);
    case 1: return tryStructure(machine, input);
    case 2:
    case 3:
    case 4: return tryExpense(machine, input);
    default: return tryEntry(machine, input);
    }
}

} // namespace hourwright::fuzz
