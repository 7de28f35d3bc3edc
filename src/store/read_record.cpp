#include "store/read_record.h"

namespace hourwright::store {

namespace {

ReadResult readCurrent(RecordStore& store, TimeEntry& out) {
    return readTimeEntry(store, out);
}

ReadResult readCurrent(RecordStore& store, ExpenseEntry& out) {
    return readExpenseEntry(store, out);
}

template<typename Record>
ReadResult readFrom(RecordStore& store, RecordId id, Record& out) {
    if (store.seek(platform::Seek::toId(id)) != RecordId::none)
        return readCurrent(store, out);
    return store.lastError() == platform::PlatformError::noMoreItems ? ReadResult::noMore : ReadResult::failed;
}

template<typename Record>
StoredState compare(Stores& stores, const Record& read, Record& now) {
    if (read.id == RecordId::none)
        return StoredState::same;
    switch (readRecord(stores, read.id, now)) {
    case ReadResult::ok: return now == read ? StoredState::same : StoredState::changed;
    case ReadResult::noMore: return StoredState::deleted;
    case ReadResult::failed: break;
    }
    return StoredState::unreadable;
}

} // namespace

ReadResult readRecord(Stores& stores, RecordId id, TimeEntry& out) {
    return readFrom(stores.entries(), id, out);
}

ReadResult readRecord(Stores& stores, RecordId id, ExpenseEntry& out) {
    return readFrom(stores.expenses(), id, out);
}

StoredState compareWithStored(Stores& stores, const TimeEntry& read, TimeEntry& now) {
    return compare(stores, read, now);
}

StoredState compareWithStored(Stores& stores, const ExpenseEntry& read, ExpenseEntry& now) {
    return compare(stores, read, now);
}

} // namespace hourwright::store
