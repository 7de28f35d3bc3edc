#pragma once

#include "platform/object_store.h"
#include "store/entry_types.h"
#include "store/record_store.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace hourwright::store {

/// One span of work for a client. A value: it owns its texts and its note.
struct TimeEntry {
    RecordId id = RecordId::none; ///< none: not yet stored
    platform::FileTime date;      ///< date and start time of day; see `hasStart`
    std::u16string client;
    std::u16string project;
    std::u16string phase;
    std::u16string task;
    std::int32_t duration = 0;  ///< hundredths of an hour
    std::int32_t breakTime = 0; ///< hundredths of an hour
    EntryStatus status = EntryStatus::nonBillable;
    std::u16string currency;
    std::int32_t rate = 0; ///< hundredths of the currency unit
    RateType rateType = RateType::normal;
    std::u16string billTo;
    std::u16string custom1;
    std::u16string custom2;
    std::u16string custom3;
    std::vector<std::byte> note; ///< note document; empty: no note
    platform::FileTime paidDate; ///< zero: none
    platform::FileTime modified; ///< time of the last change
    std::uint16_t flags = 0;     ///< as stored

    friend bool operator==(const TimeEntry&, const TimeEntry&) = default;
};

/// True when the entry has a start time: the seconds of its date are exactly 1.
[[nodiscard]] bool hasStart(const TimeEntry& entry);

/// Dates the entry on a day without a start time: 00:00:00.000. False, and nothing changed, for an invalid date.
bool setDateWithoutStart(TimeEntry& entry, const platform::SystemTime& day);
/// Dates the entry on a day with a start time of day: seconds 1, milliseconds 0. False for an invalid date.
bool setDateAndStart(TimeEntry& entry, const platform::SystemTime& dayAndTime);

/// Reads a time entry from the current record of the entry store; properties of earlier versions are folded in.
/// Memory that `out` owns is used again.
[[nodiscard]] ReadResult readTimeEntry(RecordStore& store, TimeEntry& out);
/// The same from properties already read.
void readTimeEntry(RecordId id, const platform::PropertyBuffer& properties, TimeEntry& out);

/// Writes a new record and sets the entry's id and flags. False when it was not written: platform error 87 for a
/// duration, break or rate that its field cannot hold.
[[nodiscard]] bool insertTimeEntry(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry,
                                   std::uint16_t requestedFlags = flagsNew);

/// Rewrites the record of the entry's id, removing what is empty, and sets the entry's flags by `flagsAfterUpdate`.
/// False, and the entry unchanged, when it was not written.
[[nodiscard]] bool updateTimeEntry(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry,
                                   std::uint16_t requestedFlags = flagsChanged);

/// The properties that an entry must have been read from for `updateStatus`.
[[nodiscard]] std::span<const platform::PropertyId> statusProperties();

/// Rewrites the store's current record, an entry read from `read`, as `updateTimeEntry` does, but takes only status,
/// paid date and time of change from `entry`; what else there is stays. A record of an earlier version is brought into
/// today's form.
[[nodiscard]] bool updateStatus(platform::Transaction& transaction, RecordStore& store, TimeEntry& entry,
                                const platform::PropertyBuffer& read);

/// Writes only the flags word, to the store's current record.
[[nodiscard]] bool updateFlags(platform::Transaction& transaction, RecordStore& store, std::uint16_t flags);

/// Status changes, on the value only: the caller rewrites the entry with `updateTimeEntry`.
void markPaid(TimeEntry& entry, platform::FileTime paidDate);
void markUnpaid(TimeEntry& entry);
void toggleBilled(TimeEntry& entry);

} // namespace hourwright::store
