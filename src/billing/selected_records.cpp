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

// The rules of statuses are written for time entries, and the same for expenses.
template<typename Rule>
void change(TimeEntry& entry, const Rule& rule) {
    rule(entry);
}

template<typename Rule>
void change(ExpenseEntry& expense, const Rule& rule) {
    TimeEntry entry;
    entry.status = expense.status;
    entry.paidDate = expense.paidDate;
    rule(entry);
    expense.status = entry.status;
    expense.paidDate = entry.paidDate;
}

template<typename Record, typename Rule>
bool changeAll(Transaction& transaction, Stores& stores, std::vector<Record>& records, FileTime now, const Rule& rule) {
    return std::ranges::all_of(records, [&](Record& record) {
        change(record, rule);
        record.modified = now;
        return update(transaction, stores, record);
    });
}

template<typename Record, typename Rule>
bool changeThese(Transaction& transaction, Stores& stores, std::span<const RecordId> ids, FileTime now,
                 const Rule& rule) {
    auto records = readAll<Record>(stores, ids);
    return records && changeAll(transaction, stores, *records, now, rule);
}

template<typename Rule>
bool changeSelected(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids,
                    FileTime now, const Rule& rule) {
    return kind == Selected::entries ? changeThese<TimeEntry>(transaction, stores, ids, now, rule)
                                     : changeThese<ExpenseEntry>(transaction, stores, ids, now, rule);
}

template<typename Record>
bool togglePaidOf(Transaction& transaction, Stores& stores, std::span<const RecordId> ids, FileTime now) {
    auto records = readAll<Record>(stores, ids);
    if (!records)
        return false;
    const bool allPaid =
        std::ranges::all_of(*records, [](const Record& record) { return record.status == EntryStatus::paid; });
    return changeAll(transaction, stores, *records, now, [allPaid, now](TimeEntry& entry) {
        if (allPaid)
            store::markUnpaid(entry);
        else
            store::markPaid(entry, now);
    });
}

} // namespace

bool toggleBilled(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids,
                  FileTime now) {
    return changeSelected(transaction, stores, kind, ids, now, store::toggleBilled);
}

bool togglePaid(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids, FileTime now) {
    return kind == Selected::entries ? togglePaidOf<TimeEntry>(transaction, stores, ids, now)
                                     : togglePaidOf<ExpenseEntry>(transaction, stores, ids, now);
}

bool markPaid(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids, FileTime paidDate,
              FileTime now) {
    return changeSelected(transaction, stores, kind, ids, now,
                          [paidDate](TimeEntry& entry) { store::markPaid(entry, paidDate); });
}

bool markUnpaid(Transaction& transaction, Stores& stores, Selected kind, std::span<const RecordId> ids, FileTime now) {
    return changeSelected(transaction, stores, kind, ids, now, store::markUnpaid);
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
