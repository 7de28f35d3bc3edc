#include "billing/selected_records.h"

#include "store/read_record.h"

#include <algorithm>
#include <vector>

namespace hourwright::billing {

namespace {

using platform::FileTime;
using platform::Transaction;
using store::EntryStatus;
using store::ExpenseEntry;
using store::ReadResult;
using store::RecordId;
using store::Stores;
using store::TimeEntry;

template<typename Record>
std::optional<std::vector<Record>> readAll(Stores& stores, std::span<const RecordId> ids) {
    std::vector<Record> records;
    for (const RecordId id : ids) {
        Record record;
        const ReadResult result = store::readRecord(stores, id, record);
        if (result == ReadResult::failed)
            return std::nullopt;
        if (result == ReadResult::ok)
            records.push_back(std::move(record));
    }
    return records;
}

bool update(Transaction& transaction, Stores& stores, TimeEntry& entry) {
    return store::updateTimeEntry(transaction, stores.entries(), entry);
}

bool update(Transaction& transaction, Stores& stores, ExpenseEntry& expense) {
    return store::updateExpenseEntry(transaction, stores.expenses(), expense);
}

template<typename Record>
bool toggleBilledOf(Transaction& transaction, Stores& stores, std::span<const RecordId> ids, FileTime now) {
    auto records = readAll<Record>(stores, ids);
    return records && std::ranges::all_of(*records, [&](Record& record) {
               const bool unbilled =
                   record.status == EntryStatus::nonBillable || record.status == EntryStatus::billable;
               record.status = unbilled ? EntryStatus::billed : EntryStatus::billable;
               record.modified = now;
               return update(transaction, stores, record);
           });
}

template<typename Record>
bool togglePaidOf(Transaction& transaction, Stores& stores, std::span<const RecordId> ids, FileTime now) {
    auto records = readAll<Record>(stores, ids);
    if (!records)
        return false;
    const bool allPaid =
        std::ranges::all_of(*records, [](const Record& record) { return record.status == EntryStatus::paid; });
    return std::ranges::all_of(*records, [&](Record& record) {
        record.status = allPaid ? EntryStatus::billed : EntryStatus::paid;
        if (!allPaid)
            record.paidDate = now;
        record.modified = now;
        return update(transaction, stores, record);
    });
}

} // namespace

bool toggleBilled(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids,
                  FileTime now) {
    return kind == Selected::entries ? toggleBilledOf<TimeEntry>(transaction, stores, ids, now)
                                     : toggleBilledOf<ExpenseEntry>(transaction, stores, ids, now);
}

bool togglePaid(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids, FileTime now) {
    return kind == Selected::entries ? togglePaidOf<TimeEntry>(transaction, stores, ids, now)
                                     : togglePaidOf<ExpenseEntry>(transaction, stores, ids, now);
}

bool deleteRecords(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids) {
    store::RecordStore& records = kind == Selected::entries ? stores.entries() : stores.expenses();
    for (const RecordId id : ids) {
        if (records.seek(platform::Seek::toId(id)) == RecordId::none) {
            if (records.lastError() != platform::PlatformError::noMoreItems)
                return false;
        } else if (!records.deleteCurrent(transaction)) {
            return false;
        }
    }
    return true;
}

} // namespace hourwright::billing
