#include "store/time_entry.h"

#include "store/fields.h"
#include "store/property_list.h"

#include <algorithm>
#include <array>
#include <limits>

namespace hourwright::store {

using platform::FileTime;
using platform::PropertyId;
using platform::PropertyValue;
using platform::SystemTime;
using platform::ValueType;

namespace {

constexpr std::uint16_t startMarkerSecond = 1;

constexpr std::uint32_t packed(std::uint16_t number, ValueType type) {
    return PropertyId(number, type).value;
}

// Puts the time of day that earlier versions kept apart into the entry's date.
void mergeOldStart(TimeEntry& entry, FileTime start) {
    const auto date = toSystemTime(entry.date);
    const auto time = toSystemTime(start);
    if (!date || !time)
        return;
    SystemTime merged = *date;
    merged.hour = time->hour;
    merged.minute = time->minute;
    merged.second = time->second;
    merged.milliseconds = 0;
    entry.date = toFileTime(merged).value_or(entry.date);
}

void applyNumber(TimeEntry& entry, const PropertyValue& value) {
    const auto small = static_cast<std::uint16_t>(value.number);
    switch (value.id.value) {
    case packed(field::date, ValueType::fileTime): entry.date = value.fileTime(); break;
    case packed(field::duration, ValueType::ui2): entry.duration = small; break;
    case packed(field::rate, ValueType::ui4):
        entry.rate = static_cast<std::int32_t>(static_cast<std::uint32_t>(value.number));
        break;
    case packed(field::rateType, ValueType::ui2): entry.rateType = static_cast<RateType>(small); break;
    case packed(field::status, ValueType::ui2): entry.status = static_cast<EntryStatus>(small); break;
    case packed(field::paidDate, ValueType::fileTime): entry.paidDate = value.fileTime(); break;
    case packed(field::stamp, ValueType::fileTime): entry.modified = value.fileTime(); break;
    case packed(field::flags, ValueType::ui2): entry.flags = small; break;
    case packed(field::breakTime, ValueType::ui2): entry.breakTime = small; break;
    case packed(field::oldBillable, ValueType::boolean):
        entry.status = value.number != 0 ? EntryStatus::billable : EntryStatus::nonBillable;
        break;
    case packed(field::oldBilled, ValueType::boolean):
        if (value.number != 0)
            entry.status = EntryStatus::paid;
        break;
    case packed(field::oldStart, ValueType::fileTime): mergeOldStart(entry, value.fileTime()); break;
    default: break;
    }
}

void applyText(TimeEntry& entry, const PropertyValue& value) {
    switch (value.id.number()) {
    case field::client: entry.client = value.text; break;
    case field::project: entry.project = value.text; break;
    case field::phase: entry.phase = value.text; break;
    case field::task: entry.task = value.text; break;
    case field::currency: entry.currency = value.text; break;
    case field::billTo: entry.billTo = value.text; break;
    case field::custom1: entry.custom1 = value.text; break;
    case field::custom2: entry.custom2 = value.text; break;
    case field::custom3: entry.custom3 = value.text; break;
    default: break;
    }
}

void clear(TimeEntry& entry, RecordId id) {
    entry.id = id;
    entry.date = entry.paidDate = entry.modified = FileTime{};
    for (std::u16string* const text : {&entry.client, &entry.project, &entry.phase, &entry.task, &entry.currency,
                                       &entry.billTo, &entry.custom1, &entry.custom2, &entry.custom3})
        text->clear();
    entry.duration = entry.breakTime = entry.rate = 0;
    entry.status = EntryStatus::nonBillable;
    entry.rateType = RateType::normal;
    entry.note.clear();
    entry.flags = 0;
}

// True when the numbers fit their fields; a negative or too large one must not be dropped or wrapped in silence.
bool fits(const TimeEntry& entry) {
    constexpr std::int32_t largest = std::numeric_limits<std::uint16_t>::max();
    return entry.duration >= 0 && entry.duration <= largest && entry.breakTime >= 0 && entry.breakTime <= largest &&
           entry.rate >= 0;
}

PropertyList propertyList(const TimeEntry& entry, std::uint16_t flags, PropertyList::Mode mode) {
    const auto rateType = static_cast<std::uint16_t>(entry.rateType);
    PropertyList list(mode);
    list.fileTime(field::date, entry.date);
    list.text(field::client, entry.client);
    list.textUnlessEmpty(field::project, entry.project);
    list.textUnlessEmpty(field::phase, entry.phase);
    list.textUnlessEmpty(field::task, entry.task);
    list.ui2UnlessZero(field::duration, static_cast<std::uint16_t>(entry.duration));
    list.ui2UnlessZero(field::status, static_cast<std::uint16_t>(entry.status));
    list.textUnlessEmpty(field::currency, entry.currency);
    list.ui4UnlessZero(field::rate, static_cast<std::uint32_t>(entry.rate));
    list.fileTimeUnlessZero(field::paidDate, entry.paidDate);
    list.textUnlessEmpty(field::billTo, entry.billTo);
    list.textUnlessEmpty(field::custom1, entry.custom1);
    list.textUnlessEmpty(field::custom2, entry.custom2);
    list.textUnlessEmpty(field::custom3, entry.custom3);
    list.ui2UnlessZero(field::rateType,
                       rateType <= static_cast<std::uint16_t>(RateType::discount) ? rateType : std::uint16_t{0});
    list.fileTime(field::stamp, entry.modified);
    list.blobUnlessEmpty(field::note, entry.note);
    list.ui2UnlessZero(field::breakTime, static_cast<std::uint16_t>(entry.breakTime));
    list.ui2(field::flags, flags);
    // What earlier versions kept apart is in the fields above now and must not be folded in again.
    list.deleteProperty({field::oldBillable, ValueType::boolean});
    list.deleteProperty({field::oldBilled, ValueType::boolean});
    list.deleteProperty({field::oldStart, ValueType::fileTime});
    return list;
}

constexpr std::array statusReads = {
    PropertyId(field::date, ValueType::fileTime),       PropertyId(field::rate, ValueType::ui4),
    PropertyId(field::rateType, ValueType::ui2),        PropertyId(field::status, ValueType::ui2),
    PropertyId(field::paidDate, ValueType::fileTime),   PropertyId(field::flags, ValueType::ui2),
    PropertyId(field::oldBillable, ValueType::boolean), PropertyId(field::oldBilled, ValueType::boolean),
    PropertyId(field::oldStart, ValueType::fileTime)};

// True for what a whole rewrite would take away or refuse.
bool isOfEarlierForm(const PropertyValue& value) {
    switch (value.id.value) {
    case packed(field::oldBillable, ValueType::boolean):
    case packed(field::oldBilled, ValueType::boolean):
    case packed(field::oldStart, ValueType::fileTime): return true;
    case packed(field::rateType, ValueType::ui2): return value.number > static_cast<std::uint16_t>(RateType::discount);
    case packed(field::rate, ValueType::ui4): return value.number > std::numeric_limits<std::int32_t>::max();
    default: return false;
    }
}

bool updateWhole(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry) {
    TimeEntry whole;
    if (readTimeEntry(store, whole) != ReadResult::ok)
        return false;
    whole.status = entry.status;
    whole.paidDate = entry.paidDate;
    whole.modified = entry.modified;
    if (!updateTimeEntry(transaction, store, whole))
        return false;
    entry.flags = whole.flags;
    return true;
}

} // namespace

bool hasStart(const TimeEntry& entry) {
    return entry.date.ticks / platform::ticksPerSecond % 60 == startMarkerSecond;
}

bool setDateWithoutStart(TimeEntry& entry, const SystemTime& day) {
    SystemTime midnight{.year = day.year, .month = day.month, .day = day.day};
    const auto instant = toFileTime(midnight);
    if (instant)
        entry.date = *instant;
    return instant.has_value();
}

bool setDateAndStart(TimeEntry& entry, const SystemTime& dayAndTime) {
    SystemTime start = dayAndTime;
    start.second = startMarkerSecond;
    start.milliseconds = 0;
    const auto instant = toFileTime(start);
    if (instant)
        entry.date = *instant;
    return instant.has_value();
}

void readTimeEntry(RecordId id, const platform::PropertyBuffer& properties, TimeEntry& out) {
    clear(out, id);
    for (const PropertyValue& value : properties.values()) {
        if (value.id.type() == ValueType::text)
            applyText(out, value);
        else if (value.id == PropertyId(field::note, ValueType::blob))
            out.note.assign(value.blob.begin(), value.blob.end());
        else
            applyNumber(out, value);
    }
}

ReadResult readTimeEntry(RecordStore& store, TimeEntry& out) {
    platform::PropertyBuffer properties;
    const ReadResult result = store.read(properties);
    if (result == ReadResult::ok)
        readTimeEntry(store.current(), properties, out);
    return result;
}

bool insertTimeEntry(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry,
                     std::uint16_t requestedFlags) {
    if (!fits(entry))
        return store.refuse(platform::PlatformError::invalidParameter);
    const RecordId id =
        store.write(transaction, RecordId::none, propertyList(entry, requestedFlags, PropertyList::Mode::insert));
    if (id == RecordId::none)
        return false;
    entry.id = id;
    entry.flags = requestedFlags;
    return true;
}

bool updateTimeEntry(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry,
                     std::uint16_t requestedFlags) {
    if (!fits(entry) || entry.id == RecordId::none)
        return store.refuse(platform::PlatformError::invalidParameter);
    const std::uint16_t flags = flagsAfterUpdate(entry.flags, requestedFlags);
    if (store.write(transaction, entry.id, propertyList(entry, flags, PropertyList::Mode::update)) == RecordId::none)
        return false;
    entry.flags = flags;
    return true;
}

std::span<const PropertyId> statusProperties() {
    return statusReads;
}

bool updateStatus(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry,
                  const platform::PropertyBuffer& read) {
    if (std::ranges::any_of(read.values(), isOfEarlierForm))
        return updateWhole(transaction, store, entry);
    const std::uint16_t flags = flagsAfterUpdate(entry.flags, flagsChanged);
    PropertyList list(PropertyList::Mode::update);
    list.ui2UnlessZero(field::status, static_cast<std::uint16_t>(entry.status));
    list.fileTimeUnlessZero(field::paidDate, entry.paidDate);
    list.fileTime(field::stamp, entry.modified);
    list.ui2(field::flags, flags);
    if (store.write(transaction, entry.id, list) == RecordId::none)
        return false;
    entry.flags = flags;
    return true;
}

bool updateFlags(platform::Transaction& transaction, RecordStore& store, std::uint16_t flags) {
    const std::array properties = {PropertyValue::ofUi2(field::flags, flags)};
    return store.current() != RecordId::none && store.write(transaction, store.current(), properties) != RecordId::none;
}

void markPaid(TimeEntry& entry, FileTime paidDate) {
    entry.status = EntryStatus::paid;
    entry.paidDate = paidDate;
}

void markUnpaid(TimeEntry& entry) {
    entry.status = EntryStatus::billed;
}

void toggleBilled(TimeEntry& entry) {
    const bool unbilled = entry.status == EntryStatus::nonBillable || entry.status == EntryStatus::billable;
    entry.status = unbilled ? EntryStatus::billed : EntryStatus::billable;
}

} // namespace hourwright::store
